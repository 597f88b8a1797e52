#include <gtest/gtest.h>

#include <sstream>

#include "ui/console_ui.h"
#include "ui/ui.h"

namespace tidemark::ui {
namespace {

using Lines = std::vector<std::string>;

// The headless program's message box: "TITLE: text" per line, each ending in a newline.
TEST(ConsoleUi, WritesEachLineOfABoxPrefixedByItsTitle) {
  std::ostringstream out;
  ConsoleUi console(out);
  console.message("Bad Variance Model", {"first line", "", "third  line"});
  EXPECT_EQ(
      out.str(),
      "Bad Variance Model: first line\nBad Variance Model: \nBad Variance Model: third  line\n");
}

TEST(Report, ShowsTheBoxOnceAndLogsEveryLineWithItsTitle) {
  RecordingUi ui;
  MemoryLog log;
  report(ui, log, "Serious Error", {"Could not open user registry", "second"});
  ASSERT_EQ(ui.boxes().size(), 1u);
  EXPECT_EQ(ui.boxes()[0].title, "Serious Error");
  EXPECT_EQ(ui.boxes()[0].lines, (Lines{"Could not open user registry", "second"}));
  EXPECT_EQ(log.lines(),
            (Lines{"Serious Error: Could not open user registry", "Serious Error: second"}));
}

}  // namespace
}  // namespace tidemark::ui
