#include "shell/command_line.h"

#include <gtest/gtest.h>

namespace tidemark::shell {
namespace {

using Args = std::vector<std::string>;

struct Case {
  const char* what;
  Args args;
  OneShot one_shot;
  std::string argument;
  std::optional<std::string> command_file;
};

// Expected actions follow the option table of the command line: the one-shot options
// in the order EDIT, HELP, CD, PRINT, SHELL (the first found wins), a file name after
// ":" or as the next word, and the command file after "-@" or "@".
class CommandLineCases : public testing::TestWithParam<Case> {};

TEST_P(CommandLineCases, ReadsTheOptionAndItsArgument) {
  const Case& c = GetParam();
  const CommandLine line = parse_command_line(c.args);
  EXPECT_EQ(line.one_shot, c.one_shot);
  EXPECT_EQ(line.argument, c.argument);
  EXPECT_EQ(line.command_file, c.command_file);
}

INSTANTIATE_TEST_SUITE_P(
    Options, CommandLineCases,
    testing::Values(
        Case{"nothing", {}, OneShot::kNone, "", std::nullopt},
        Case{"edit colon", {"-EDIT:notes.txt"}, OneShot::kEdit, "notes.txt", std::nullopt},
        Case{"edit blank", {"-edit", "notes.txt"}, OneShot::kEdit, "notes.txt", std::nullopt},
        Case{"edit without a file", {"-EDIT:"}, OneShot::kEdit, "", std::nullopt},
        Case{"edit wins over print", {"-PRINT:a", "-EDIT:b"}, OneShot::kEdit, "b", std::nullopt},
        Case{"help wins over cd", {"-CD:/tmp", "-HELP"}, OneShot::kHelp, "", std::nullopt},
        Case{"cd with folder", {"-CD", "/data"}, OneShot::kCd, "/data", std::nullopt},
        Case{"print", {"-Print:lh.dat"}, OneShot::kPrint, "lh.dat", std::nullopt},
        Case{"shell", {"-SHELL"}, OneShot::kShell, "", std::nullopt},
        Case{"editor is not edit", {"-EDITOR"}, OneShot::kNone, "", std::nullopt},
        Case{"usage first", {"-SHELL", "--help"}, OneShot::kUsage, "", std::nullopt},
        Case{"version", {"--version"}, OneShot::kVersion, "", std::nullopt},
        Case{"at then name", {"-@", "run.cmd"}, OneShot::kNone, "", "run.cmd"},
        Case{"at joined", {"@run.cmd"}, OneShot::kNone, "", "run.cmd"},
        Case{"quoted option", {"\"-@\"", "run.cmd"}, OneShot::kNone, "", "run.cmd"},
        Case{"at without a name", {"-@"}, OneShot::kNone, "", ""}),
    [](const testing::TestParamInfo<Case>& p) {
      std::string name = p.param.what;
      for (char& ch : name) {
        if (!std::isalnum(static_cast<unsigned char>(ch))) ch = '_';
      }
      return name;
    });

TEST(CommandLine, GraphFileAndUnknownArgumentsAreKeptApart) {
  const CommandLine line = parse_command_line({"-grf_view", "a.grf", "-Q", "-@", "r.cmd"});
  EXPECT_EQ(line.graph_file, "a.grf");
  EXPECT_EQ(line.command_file, "r.cmd");
  EXPECT_EQ(line.unknown, (Args{"-Q"}));
}

}  // namespace
}  // namespace tidemark::shell
