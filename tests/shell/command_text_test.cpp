#include "shell/command_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tidemark::shell {
namespace {

// A command is recognised by its leading characters over the full length of the name,
// both in upper case.
TEST(CommandText, NamesMatchByTheirLeadingCharactersInAnyLetterCase) {
  EXPECT_TRUE(command_is("copy_log \"a.log\"", "COPY_LOG"));
  EXPECT_TRUE(command_is("  READ_NATIVEX", "READ_NATIVE"));
  EXPECT_FALSE(command_is("READ_NATIV", "READ_NATIVE"));
  EXPECT_FALSE(command_is("COPY_LST", "COPY_LOG"));
}

TEST(CommandText, ArgumentIsTheQuotedTextOrTheRestOfTheLine) {
  EXPECT_EQ(command_argument("COPY_LOG \"my file.log\"", "COPY_LOG"), "my file.log");
  EXPECT_EQ(command_argument("SELECT   LH-24h  ", "SELECT"), "LH-24h");
  EXPECT_EQ(command_argument("CD \"unclosed", "CD"), "unclosed");
  EXPECT_EQ(command_argument("EXIT", "EXIT"), "");
}

TEST(CommandText, CommentAndBlankLinesHoldNoCommand) {
  EXPECT_EQ(command_of_line("! a comment"), std::nullopt);
  EXPECT_EQ(command_of_line("   "), std::nullopt);
  EXPECT_EQ(command_of_line("  RESET\r"), "RESET");
  // A line is cut at 1024 characters, the length of the command text.
  EXPECT_EQ(command_of_line(std::string(1500, 'A'))->size(), 1500u);  // refused by the session
}

}  // namespace
}  // namespace tidemark::shell
