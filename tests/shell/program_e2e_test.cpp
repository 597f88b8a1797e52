// End-to-end runs of the headless program on command files, in a fresh program folder
// each. Expected texts are the program's messages as its users see them.
#include <gtest/gtest.h>

#include <algorithm>
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
  ASSERT_EQ(h.size(), 4u);
  EXPECT_TRUE(matches_shape(h[0], "! command file created by Tidemark * ####/##/## at ##:##:##"))
      << h[0];
  EXPECT_TRUE(matches_shape(h[1], "SEED #*")) << h[1];
  EXPECT_EQ(h[2], "CD \"" + dir.path().string() + "\"");  // the start folder
  EXPECT_EQ(h[3], "!cmd file = " + (dir / "run.cmd").string());
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
  EXPECT_EQ(Lines(h.begin() + 6, h.end()),
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

// Unattended runs may stop at the first failure: by the command ON_ERROR STOP or the
// option -ON_ERROR:STOP, both recorded; the status is 3 and the message names the
// command that failed and where it stands. By default the file goes on.
TEST_F(Program, OnErrorStopEndsTheRunAtTheFailedCommandAndNamesIt) {
  const std::string body = "READ_NATIVE \"missing.dat\"\nSEED 17\n";
  const auto file = (dir / "run.cmd").string();
  struct Case {
    std::string commands;
    std::vector<std::string> options;
    int status;
    std::string stop;  // the failure named, empty when the run goes on
  };
  const Case cases[] = {
      {body, {}, 1, ""},
      {"ON_ERROR CONTINUE\n" + body, {}, 1, ""},
      {"ON_ERROR STOP\n" + body, {}, 3, "command 2 (" + file + " line 2)"},
      {body, {"-ON_ERROR:STOP"}, 3, "command 1 (" + file + " line 1)"},
      {body, {"-on_error", "stop"}, 3, "command 1 (" + file + " line 1)"},
  };
  for (const Case& c : cases) {
    dir.write("run.cmd", c.commands);
    std::vector<std::string> args = c.options;
    args.insert(args.end(), {"-@", file});
    fs::remove_all(home());
    const ProgramRun r = run_tidemark(home(), dir.path(), args, "");
    EXPECT_EQ(r.status, c.status) << c.commands;
    const Lines h = history();
    if (c.stop.empty()) {
      EXPECT_EQ(h.back(), "SEED 17") << c.commands;
      EXPECT_EQ(r.err.find("Run Stopped"), std::string::npos) << r.err;
    } else {
      EXPECT_NE(h.back(), "SEED 17") << c.commands;
      EXPECT_TRUE(std::find(h.begin(), h.end(), "ON_ERROR STOP") != h.end()) << c.commands;
      EXPECT_NE(r.err.find("Run Stopped: ON_ERROR STOP: the run stops after the failure of " +
                           c.stop + ": READ_NATIVE \"missing.dat\"\n"),
                std::string::npos)
          << r.err;
    }
  }
}

// The end of the commands warns of unwritten changes as EXIT does.
TEST_F(Program, TheEndOfInputWarnsOfModifiedDataSetsAsExitDoes) {
  const std::string read = "READ_NATIVE \"" + (kExamples / "lh_24h_10min.dat").string() + "\"\n";
  const std::string change = "SPREADSHEET_FUNCTION= LH = 1\nSPREADSHEET_UPDATE\n";
  for (const std::string& end : {std::string(), std::string("EXIT\n")}) {
    const ProgramRun r = run(read + change + end);
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.err.find("Terminate the Program: Data set 1 (lh_24h_10min.dat) is modified and has "
                         "not been written (WRITE_NATIVE)."),
              std::string::npos)
        << end << r.err;
  }
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
  EXPECT_EQ(Lines(h.begin() + 3, h.end()), (Lines{"SEED 3", "EXIT"}));
}

// At the terminal a user is told how to start in words for a terminal, and entering a
// mode (or DIALOG) shows its dialog as text: fields with values and kinds, buttons with
// their commands.
TEST_F(Program, AtTheTerminalTheHintIsTypedCommandsAndAModeShowsItsDialog) {
  dir.write("home/system/registry.ini", "Default_Folder=" + dir.path().string() + "\n");
  const ProgramRun r =
      run_tidemark_on_terminal(home(), dir.path(), {},
                               "READ_NATIVE \"" + (kExamples / "lh_24h_10min.dat").string() +
                                   "\"\nMODE Cluster8\nEXIT\ny\n");
  if (r.status == kNoTerminal) GTEST_SKIP() << "no pseudo-terminal on this machine";
  EXPECT_EQ(r.status, 0) << r.out;
  EXPECT_EQ(r.out.find("Click on FILEand"), std::string::npos);
  for (const char* text :
       {"Initial Program Information: The first step to using this program is "
        "to read a data set: type",
        "HELP lists every command", "CLUSTER ANALYSIS\r\n",
        "    T-Score for Increase = 2   (a real number)\r\n",
        "    \"Calculate\": CLUSTER_CALCULATE\r\n", "  Set a field with: SET label = value"}) {
    EXPECT_NE(r.out.find(text), std::string::npos) << text << "\n" << r.out;
  }
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
  EXPECT_EQ(Lines(h.begin() + 3, h.end()), (Lines{"SEED 12", "MODE Pulse"}));
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
        "xapen_s07.lst", "apen_gh.png", "autodecon_lh.png", "summary_books.csv", "demo.log"}) {
    EXPECT_TRUE(fs::exists(dir / "demo-out" / file)) << file;
  }
}

// A run in one program folder, with saved ApEn settings and SET values of more digits
// than a listing shows, replayed from another working folder with a fresh program
// folder: the history carries the start folder and every value used, so the replay
// writes the same listings, answers and data files byte for byte.
TEST_F(Program, TheHistoryReplaysAnywhereToTheSameFiles) {
  fs::create_directory(dir / "first");
  fs::create_directory(dir / "elsewhere");
  fs::copy_file(kExamples / "lh_24h_10min.dat", dir / "first" / "lh.dat");
  dir.write("home/system/do_apen.ini", "R =     0.35000    \nMC Cycles = 7\n");
  dir.write("run.cmd",
            "READ_NATIVE \"lh.dat\"\nMODE ApEn\nAPEN_CALCULATE\nCOPY_LST \"apen.lst\"\n"
            "MODE Cosine\nSET Period = 1234.56789\nSET Phase = 0.123456789\nCOSINE_CALCULATE\n"
            "COPY_LST \"cosine.lst\"\nCOSINE_SUBTRACT\nWRITE_NATIVE \"out.dat\"\n"
            "WRITE_CSV \"out.csv\"\nSAVE_AS_BST \"answers.bst\"\n");
  const char* outputs[] = {"apen.lst", "cosine.lst", "out.dat", "out.csv", "answers.bst"};
  const ProgramRun first =
      run_tidemark(home(), dir / "first", {"-@", (dir / "run.cmd").string()}, "");
  ASSERT_EQ(first.status, 0) << first.err;
  std::vector<std::string> written;
  for (const char* file : outputs) {
    written.push_back(Scratch::read(dir / "first" / file));
    fs::remove(dir / "first" / file);
  }
  EXPECT_NE(written[0].find("0.35"), std::string::npos) << written[0];  // the saved R
  const ProgramRun second =
      run_tidemark(dir / "home2", dir / "elsewhere", {"-@", run_file(home(), "CMD_").string()}, "");
  ASSERT_EQ(second.status, 0) << second.err;
  for (std::size_t i = 0; i < std::size(outputs); ++i) {
    EXPECT_EQ(Scratch::read(dir / "first" / outputs[i]), written[i]) << outputs[i];
  }
}

}  // namespace
}  // namespace tidemark::testing_support
