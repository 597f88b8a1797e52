#include "ui/console_ui.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tidemark::ui {
namespace {

TEST(ConsoleQuestions, NobodyAnswersWhenTheInputIsNotATerminal) {
  std::istringstream in("y\n");
  std::ostringstream out, err;
  ConsoleUi console(in, out, err, false);
  EXPECT_EQ(console.ask("Terminate the Program", "Are You Sure?"), std::nullopt);
  EXPECT_EQ(console.choose_file({"Select a name for the LOG file", "", "", true}), std::nullopt);
  EXPECT_EQ(err.str(), "");
  EXPECT_EQ(console.next_command(), "y");  // the line is still there for the commands
}

TEST(ConsoleQuestions, ATerminalUserIsAskedUntilTheAnswerIsYesOrNo) {
  std::istringstream in("maybe\nn\nlog.txt\n");
  std::ostringstream out, err;
  ConsoleUi console(in, out, err, true);
  EXPECT_EQ(console.ask("Terminate the Program", "Are You Sure?"), false);
  EXPECT_EQ(err.str(),
            "Terminate the Program: Are You Sure? (Y/N) Terminate the Program: Are You Sure? "
            "(Y/N) ");
  EXPECT_EQ(console.choose_file({"Select a name for the LOG file", "", "", true}), "log.txt");
  EXPECT_EQ(console.ask("Q", "Again?"), std::nullopt);  // end of input
}

TEST(ConsoleQuestions, ABlankFileNameTakesTheNameOffered) {
  std::istringstream in("\n");
  std::ostringstream out, err;
  ConsoleUi console(in, out, err, true);
  const FileRequest request{"Select a name for the native mode output file", "", "lh_.dat", true};
  EXPECT_EQ(console.choose_file(request), "lh_.dat");
  EXPECT_EQ(err.str(), "Select a name for the native mode output file [lh_.dat]: ");
  EXPECT_EQ(console.choose_file(request), std::nullopt);  // end of input
}

TEST(ConsoleCommands, LinesComeWithoutTheirLineEndsUntilTheInputEnds) {
  std::istringstream in("RESET\r\nEXIT");
  std::ostringstream out, err;
  ConsoleUi console(in, out, err, false);
  EXPECT_EQ(console.next_command(), "RESET");
  EXPECT_EQ(console.next_command(), "EXIT");
  EXPECT_EQ(console.next_command(), std::nullopt);
}

TEST(ConsoleText, TheTextViewerWritesToTheOutputEndingInALineEnd) {
  std::istringstream in;
  std::ostringstream out, err;
  ConsoleUi console(in, out, err, false);
  console.show_text("Cluster8", "PEAKS\n1");
  EXPECT_EQ(out.str(), "PEAKS\n1\n");
}

}  // namespace
}  // namespace tidemark::ui
