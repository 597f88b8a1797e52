// The one-shot options of the command line, run through the real program: each does its
// action and ends the program before any command is read.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "shell/program_runner.h"
#include "shell/scratch.h"

namespace tidemark::testing_support {
namespace {

namespace fs = std::filesystem;

class OneShot : public testing::Test {
 protected:
  void SetUp() override {
    if (!fs::exists(tidemark_binary())) GTEST_SKIP() << "build the tidemark program first";
  }
  // A shell script that writes its arguments and its folder to `record`.
  fs::path recorder(const std::string& name, const fs::path& record) {
    const auto script = dir.write(name, "#!/bin/sh\necho \"$@\" > '" + record.string() +
                                            "'\npwd >> '" + record.string() + "'\n");
    chmod(script.c_str(), 0755);
    return script;
  }
  ProgramRun run(const std::vector<std::string>& args, const std::vector<std::string>& env = {}) {
    return run_tidemark(dir / "home", dir.path(), args, "SEED 1\n", env);
  }
  Scratch dir;
};

TEST_F(OneShot, EditOpensTheFileInTheEditorAndEnds) {
  const auto editor = recorder("editor.sh", dir / "edited");
  const ProgramRun r = run({"-EDIT:notes.txt"}, {"VISUAL=", "EDITOR=" + editor.string()});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(Scratch::read(dir / "edited"), "notes.txt\n" + dir.path().string() + "\n");
}

TEST_F(OneShot, EditWithoutAnEditorSaysWhatToSet) {
  const ProgramRun r = run({"-EDIT", "notes.txt"}, {"VISUAL=", "EDITOR="});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "Edit: No text editor is set: set VISUAL or EDITOR.\n");
}

TEST_F(OneShot, PrintGoesThroughLpOrSaysThereIsNoPrinter) {
  fs::create_directory(dir / "bin");
  const ProgramRun none = run({"-PRINT:lh.dat"}, {"PATH=" + (dir / "bin").string()});
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.err, "Print: No printer is available: the lp command was not found.\n");
  recorder("bin/lp", dir / "printed");
  const ProgramRun printed = run({"-PRINT", "lh.dat"}, {"PATH=" + (dir / "bin").string()});
  EXPECT_EQ(printed.status, 0) << printed.err;
  EXPECT_EQ(Scratch::read(dir / "printed"), "lh.dat\n" + dir.path().string() + "\n");
}

TEST_F(OneShot, ShellOpensInTheDefaultFolder) {
  fs::create_directory(dir / "data");
  dir.write("home/system/registry.ini", "Default_Folder=" + (dir / "data").string() + "\n");
  const auto shell = recorder("shell.sh", dir / "shelled");
  const ProgramRun r = run({"-SHELL"}, {"SHELL=" + shell.string()});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(Scratch::read(dir / "shelled"), "\n" + (dir / "data").string() + "\n");
}

TEST_F(OneShot, CdRecordsTheDefaultFolderForTheNextStart) {
  fs::create_directory(dir / "data");
  const ProgramRun r = run({"-CD:" + (dir / "data").string()});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_NE(Scratch::read(dir / "home/system/registry.ini")
                .find("Default_Folder=" + (dir / "data").string() + "\n"),
            std::string::npos);
  const ProgramRun refused = run({"-CD:" + (dir / "missing").string()});
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.err, "CD Error: Not a folder: " + (dir / "missing").string() + "\n");
}

// The help folder always holds the command list, so -HELP never lists an empty folder.
TEST_F(OneShot, HelpListsTheHelpFolderWhichHoldsTheCommands) {
  const ProgramRun r = run({"-HELP"});
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out, "Help documents in " + (dir / "home/help").string() + ":\n  commands.txt\n");
  EXPECT_NE(Scratch::read(dir / "home/help/commands.txt").find("  READ_NATIVE \"file\""),
            std::string::npos);
}

// A terminal user learns the commands from --help and from HELP at the prompt.
TEST_F(OneShot, UsageAndHelpListTheCommands) {
  const ProgramRun usage = run({"--help"});
  for (const char* command : {"READ_NATIVE", "MODE name", "SET label = value", "DIALOG",
                              "ON_ERROR STOP", "SAVE_GRF_PNG", "HELP [topic]", "EXIT"}) {
    EXPECT_NE(usage.out.find("\n  " + std::string(command)), std::string::npos) << command;
  }
  const ProgramRun help =
      run_tidemark(dir / "home", dir.path(), {}, "HELP\nHELP spread\nHELP nothing\n");
  EXPECT_EQ(help.status, 1);  // there is no help on "nothing"
  EXPECT_NE(help.out.find("Documents in " + (dir / "home/help").string() + ":\n  commands.txt\n"),
            std::string::npos)
      << help.out;
  EXPECT_NE(help.out.find("  SPREADSHEET               open the data spreadsheet"),
            std::string::npos);
  EXPECT_EQ(help.err, "Help: There is no help on nothing.\n");
}

TEST_F(OneShot, VersionAndUsageTouchNoFiles) {
  const ProgramRun version = run({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.out.rfind("Tidemark ", 0), 0u);
  const ProgramRun usage = run({"--help"});
  EXPECT_EQ(usage.status, 0);
  EXPECT_EQ(usage.out.rfind("usage: tidemark", 0), 0u);
  EXPECT_FALSE(fs::exists(dir / "home"));
}

}  // namespace
}  // namespace tidemark::testing_support
