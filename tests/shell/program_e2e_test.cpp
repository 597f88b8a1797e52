// End-to-end runs of the headless program on command files, in a fresh program folder
// each. Expected texts are the program's messages as its users see them.
#include <gtest/gtest.h>

#include <sstream>

#include "shell/program_runner.h"
#include "shell/scratch.h"
#include "shell/text_shape.h"

namespace tidemark::testing_support {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

const fs::path kExamples = fs::path(TIDEMARK_SOURCE_DIR) / "examples";

Lines lines_of(const std::string& text) {
  Lines lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// The lines of a command file that are commands (not comments).
Lines commands_of(const fs::path& file) {
  Lines commands;
  for (const std::string& line : lines_of(Scratch::read(file))) {
    if (line.rfind('!', 0) != 0) commands.push_back(line);
  }
  return commands;
}

class Program : public testing::Test {
 protected:
  void SetUp() override {
    if (!fs::exists(tidemark_binary())) GTEST_SKIP() << "build the tidemark program first";
  }
  fs::path home() const { return dir / "home"; }
  ProgramRun run(const std::string& commands, const std::vector<std::string>& env = {}) {
    const auto file = dir.write("run.cmd", commands);
    return run_tidemark(home(), dir.path(), {"-@", file.string()}, "", env);
  }
  Lines history() const { return lines_of(Scratch::read(run_file(home(), "CMD_"))); }
  Scratch dir;
};

TEST_F(Program, AnEmptyCommandFileCreatesTheFoldersAndRunFilesAndEndsWithStatusZero) {
  const ProgramRun r = run("");
  EXPECT_EQ(r.status, 0) << r.err;
  for (const char* path : {"system/registry.ini", "temp", "help"}) {
    EXPECT_TRUE(fs::exists(home() / path)) << path;
  }
  for (const char* prefix : {"CMD_", "LOG_", "BST_", "GRF_", "KILL_"}) {
    EXPECT_FALSE(run_file(home(), prefix).empty()) << prefix;
  }
  const Lines h = history();
  ASSERT_EQ(h.size(), 3u);
  EXPECT_TRUE(matches_shape(h[0], "! command file created by Tidemark * ####/##/## at ##:##:##"))
      << h[0];
  EXPECT_TRUE(matches_shape(h[1], "SEED #*")) << h[1];
  EXPECT_EQ(h[2], "!cmd file = " + (dir / "run.cmd").string());
  const Lines log = lines_of(Scratch::read(run_file(home(), "LOG_")));
  ASSERT_GE(log.size(), 2u);
  EXPECT_TRUE(matches_shape(log[1], "!  running on * Version * (Build *)")) << log[1];
}

TEST_F(Program, DataSetsAreReadSelectedWrittenAndReset) {
  const ProgramRun r = run("READ_NATIVE \"" + (kExamples / "lh_24h_10min.dat").string() +
                           "\"\n"
                           "READ_NATIVE \"" +
                           (kExamples / "gh_overnight_5min.dat").string() +
                           "\"\n"
                           "SELECT LH-24h\n"
                           "WRITE_NATIVE \"lh_.dat\"\n"
                           "RESET\n"
                           "WRITE_NATIVE \"none.dat\"\n");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "COMMAND IGNORED!: WRITE_NATIVE \"none.dat\"\n");
  EXPECT_EQ(lines_of(Scratch::read(dir / "lh_.dat")).at(1), "!HANDLE = LH-24h");
  EXPECT_FALSE(fs::exists(dir / "none.dat"));
  const Lines h = history();
  EXPECT_EQ(Lines(h.begin() + 5, h.end()),
            (Lines{"SELECT \"LH-24h\"", "WRITE_NATIVE \"lh_.dat\"", "RESET"}));
}

TEST_F(Program, AFailingCommandDoesNotStopTheFileAndMakesTheStatusOne) {
  const ProgramRun r = run("READ_NATIVE \"" + (kExamples / "broken_typo.dat").string() +
                           "\"\nNO_SUCH_COMMAND\nSEED 17\n");
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("ERROR READING DATA FILE: Could Not Read The Data File"), std::string::npos);
  EXPECT_NE(r.err.find("COMMAND IGNORED!: NO_SUCH_COMMAND"), std::string::npos);
  EXPECT_EQ(history().back(), "SEED 17");
}

TEST_F(Program, TheEleventhNestedCommandFileIsRefused) {
  std::string name = (dir / "level10.cmd").string();
  dir.write("level10.cmd", "@ \"" + (dir / "level11.cmd").string() + "\"\n");
  dir.write("level11.cmd", "SEED 11\n");
  for (int level = 9; level >= 1; --level) {
    const std::string file = "level" + std::to_string(level) + ".cmd";
    dir.write(file, "@ \"" + name + "\"\n");
    name = (dir / file).string();
  }
  const ProgramRun r = run_tidemark(home(), dir.path(), {"-@", (dir / "level1.cmd").string()}, "");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "Command File Error: Could not open command file = " +
                       (dir / "level11.cmd").string() + "\n");
  EXPECT_NE(history().back(), "SEED 11");
}

TEST_F(Program, AMissingCommandFileIsReportedAndTypedCommandsGoOn) {
  const ProgramRun r = run_tidemark(home(), dir.path(), {"-@", "missing.cmd"}, "SEED 5\n");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "Command File Error: Could not open command file = missing.cmd\n");
  EXPECT_EQ(history().back(), "SEED 5");
}

TEST_F(Program, ExitAnsweredNoOnATerminalReturnsToTheSamePlace) {
  // With a recorded default folder the program asks for none at start-up.
  dir.write("home/system/registry.ini", "Default_Folder=" + dir.path().string() + "\n");
  const ProgramRun r =
      run_tidemark_on_terminal(home(), dir.path(), {}, "EXIT\nn\nSEED 3\nEXIT\ny\n");
  if (r.status == kNoTerminal) GTEST_SKIP() << "no pseudo-terminal on this machine";
  EXPECT_EQ(r.status, 0) << r.out;
  EXPECT_NE(r.out.find("Terminate the Program: Are You Sure? (Y/N)"), std::string::npos);
  const Lines h = history();
  EXPECT_EQ(Lines(h.begin() + 2, h.end()), (Lines{"SEED 3", "EXIT"}));
}

TEST_F(Program, KillListFilesAreDeletedAtTheEnd) {
  const ProgramRun r =
      run("READ_NATIVE \"" + (kExamples / "lh_24h_10min.dat").string() + "\"\nMODE Cluster8\n");
  EXPECT_EQ(r.status, 0) << r.err;
  const std::string kill = Scratch::read(run_file(home(), "KILL_"));
  const std::string listing = kill.substr(kill.find('/'), kill.find(".lst") + 4 - kill.find('/'));
  EXPECT_NE(listing.find("LIST_"), std::string::npos);
  EXPECT_FALSE(fs::exists(listing));
}

TEST_F(Program, StartUpThatCannotCreateTheProgramFolderEndsWithStatusTwo) {
  const auto blocker = dir.write("file", "not a folder");
  const ProgramRun r = run_tidemark(blocker / "home", dir.path(), {}, "");
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.err.find("Serious Error: Could not create the folder"), std::string::npos);
}

TEST_F(Program, AnUnreadableRegistryIsASeriousErrorAndTheRunGoesOn) {
  fs::create_directories(home() / "system" / "registry.ini");  // a folder cannot be read
  const ProgramRun r = run_tidemark(home(), dir.path(), {}, "SEED 8\n");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "Serious Error: Could not open user registry\n");
  EXPECT_EQ(history().back(), "SEED 8");
}

TEST_F(Program, CommandsComeFromStandardInputWithoutACommandFile) {
  const ProgramRun r = run_tidemark(home(), dir.path(), {"-grf_view", "a.grf"},
                                    "! a comment\nseed 12\nMODE pulse\n");
  EXPECT_EQ(r.status, 1);  // there is no a.grf to draw
  EXPECT_EQ(r.err,
            "Graphics: READ FAILED\n"
            "Graphics: a.grf: the file cannot be read\n"
            "Mode Not Available: The Pulse mode is not available in this version.\n");
  const Lines h = history();
  EXPECT_EQ(Lines(h.begin() + 2, h.end()), (Lines{"SEED 12", "MODE Pulse"}));
}

// The bundled demo, run as make demo runs it, from a folder that holds the examples.
TEST_F(Program, TheDemoCommandFileRunsCleanly) {
  fs::create_directory_symlink(kExamples, dir / "examples");
  fs::create_directory(dir / "demo-out");
  const ProgramRun r =
      run_tidemark(home(), dir.path(), {"-@", (kExamples / "demo.cmd").string()}, "");
  EXPECT_EQ(r.status, 0) << r.err;
  for (const char* file :
       {"lh_24h_10min_events.dat", "gh_overnight_5min_conditioned.csv", "cluster8_lh.lst",
        "xapen_s07.lst", "apen_gh.png", "summary_books.csv", "demo.log"}) {
    EXPECT_TRUE(fs::exists(dir / "demo-out" / file)) << file;
  }
}

// The history of a run, fed back as a command file in another folder that holds the
// same input, writes the same data files byte for byte.
TEST_F(Program, TheHistoryReplaysToTheSameFiles) {
  for (const char* sub : {"first", "second"}) {
    fs::create_directory(dir / sub);
    fs::copy_file(kExamples / "lh_24h_10min.dat", dir / sub / "lh.dat");
  }
  dir.write("run.cmd",
            "READ_NATIVE \"lh.dat\"\nWRITE_NATIVE \"out.dat\"\nWRITE_CSV \"out.csv\"\n"
            "SAVE_AS_BST \"answers.bst\"\n");
  const ProgramRun first =
      run_tidemark(home(), dir / "first", {"-@", (dir / "run.cmd").string()}, "");
  ASSERT_EQ(first.status, 0) << first.err;
  const ProgramRun second =
      run_tidemark(dir / "home2", dir / "second", {"-@", run_file(home(), "CMD_").string()}, "");
  ASSERT_EQ(second.status, 0) << second.err;
  for (const char* file : {"out.dat", "out.csv", "answers.bst"}) {
    EXPECT_EQ(Scratch::read(dir / "first" / file), Scratch::read(dir / "second" / file)) << file;
    EXPECT_TRUE(fs::exists(dir / "second" / file)) << file;
  }
  // The replayed history holds the same commands after its own SEED line.
  const Lines h1 = commands_of(run_file(home(), "CMD_"));
  const Lines h2 = commands_of(run_file(dir / "home2", "CMD_"));
  ASSERT_EQ(h2.size(), h1.size() + 1);
  EXPECT_EQ(Lines(h2.begin() + 1, h2.end()), h1);
}

}  // namespace
}  // namespace tidemark::testing_support
