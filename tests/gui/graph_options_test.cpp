// The graph view's check boxes show the option states the shell holds, including those
// a command file set with GRF_OPTION.
#include <QCheckBox>
#include <ostream>
#include <QPushButton>

#include "desktop_fixture.h"
#include "gui/graph_view.h"
#include "gui/history_options.h"

namespace tidemark::testing_support {
namespace {

struct OptionLinesCase {
  const char* history;
  graphics::OptionStates expected;
};

// Names a case by its history text in test listings.
void PrintTo(const OptionLinesCase& c, std::ostream* os) { *os << ::testing::PrintToString(c.history); }

class OptionLines : public ::testing::TestWithParam<OptionLinesCase> {};

TEST_P(OptionLines, ReadsTheRecordedStatesInOrder) {
  graphics::OptionStates states{{"Kept", true}};
  gui::apply_option_lines(GetParam().history, states);
  EXPECT_EQ(states, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    History, OptionLines,
    ::testing::Values(
        OptionLinesCase{"GRF_OPTION \"Show Error Bars\" OFF\n", {{"Kept", true}, {"Show Error Bars", false}}},
        // The last line of a label wins; CR line ends are read too.
        OptionLinesCase{"GRF_OPTION \"A\" ON\r\nMODE Cosine\nGRF_OPTION \"A\" OFF\r\n",
                        {{"Kept", true}, {"A", false}}},
        OptionLinesCase{"GRF_OPTION \"Kept\" OFF", {{"Kept", false}}},
        // Lines that do not read as a recorded GRF_OPTION change nothing.
        OptionLinesCase{"GRF_OPTION \"B\" MAYBE\nGRF_OPTION B ON\nGRF_OPTION \"\nSET X = 1\n"
                        "! GRF_OPTION \"C\" ON\n",
                        {{"Kept", true}}}));

using GraphOptionsTest = DesktopTest;

TEST_F(GraphOptionsTest, AnOptionSetByACommandFileIsShownInItsCheckBox) {
  const auto boxes = cluster8_option_boxes();
  ASSERT_FALSE(boxes.empty());
  const std::string label = boxes.front()->text().toStdString();
  const bool was = boxes.front()->isChecked();
  const std::string batch =
      scratch_.write("work/option.bat", "GRF_OPTION \"" + label + "\" " + (was ? "OFF" : "ON") + "\n")
          .string();
  files_to_choose.push_back(batch);
  trigger("File/Run a Batch File (@)");
  ASSERT_NE(option_box(label), nullptr);
  EXPECT_EQ(option_box(label)->isChecked(), !was);
  EXPECT_EQ(window().graph_view()->states().at(label), !was);
  // Showing the state issued no command of its own: the command file's line is the last.
  EXPECT_EQ(last_command(), "GRF_OPTION \"" + label + "\" " + (was ? "OFF" : "ON"));
}

}  // namespace
}  // namespace tidemark::testing_support
