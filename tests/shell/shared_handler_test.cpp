#include "shell/shared_handler.h"

#include <gtest/gtest.h>

#include "shell/session_fixture.h"

namespace tidemark::shell {
namespace {

using testing_support::data_set;
using testing_support::Scratch;
using testing_support::SessionFixture;
using Lines = std::vector<std::string>;

TEST(ModeLoop, WithoutDataChoosingAModeChangesOnlyTheIndexAndTheHintComesBack) {
  SessionFixture f;
  f.run({"MODE cluster8", "MODE NoSuchMode"});
  EXPECT_EQ(f.session->mode(), 3);
  EXPECT_TRUE(f.ui.dialogs.empty());
  EXPECT_EQ(f.ui.hints, 3);  // before each of the two commands, and before the end of input
  EXPECT_EQ(f.history(), (Lines{"MODE Cluster8"}));
}

// MODE without a name offers the 14 names, 15 characters wide, in the list "Algorithm".
TEST(ModeLoop, ModeWithoutANameLetsTheUserPickFromTheModeList) {
  SessionFixture f;
  f.ui.item_choice = 2;
  EXPECT_TRUE(handle_shared_command("MODE", *f.session));
  EXPECT_EQ(f.ui.list_title, "Algorithm");
  ASSERT_EQ(f.ui.list_items.size(), 14u);
  EXPECT_EQ(f.ui.list_items[13], "X_ApEn         ");
  EXPECT_EQ(f.session->mode(), 3);
  f.ui.item_choice.reset();
  EXPECT_TRUE(handle_shared_command("MODE", *f.session));
  EXPECT_EQ(f.session->mode(), 3);
  EXPECT_EQ(f.history(), (Lines{"MODE Cluster8"}));
  EXPECT_EQ(f.ui.shown(), (Lines{"Mode Not Available: The Cluster8 mode is not available in "
                                 "this version.",
                                 "COMMAND IGNORED!: MODE"}));
}

TEST(ModeLoop, AModeNotBuiltYetSaysSoAndStaysChosen) {
  SessionFixture f;
  f.session->store().append(data_set("lh.dat", "LH", 5));
  f.run({"MODE Periodic", "PERIODIC_CALCULATE"});
  EXPECT_EQ(f.ui.shown(),
            (Lines{"Mode Not Available: The Periodic mode is not available in this version.",
                   "Error Reported by Periodic: The Periodic mode is not available in this "
                   "version."}));
  EXPECT_EQ(f.session->mode(), 9);
}

TEST(SharedHandler, ExitAnsweredNoChangesNothingAndTheRunGoesOn) {
  SessionFixture f;
  f.ui.answers = {false};
  f.run({"EXIT", "SEED 9", "EXIT"});
  EXPECT_EQ(f.history(), (Lines{"SEED 9", "EXIT"}));
  EXPECT_FALSE(f.session->failed());
  const Lines log = f.log();
  EXPECT_EQ(log.back(), "EXIT");
  EXPECT_EQ(log[log.size() - 2],
            "Terminate the Program: Are You Sure? YES (nobody to answer: the batch answer)");
}

TEST(SharedHandler, ExitWarnsOfModifiedSetsUntilWriteNativeHasKeptThem) {
  SessionFixture f;
  Scratch out;
  f.session->store().append(data_set("lh.dat", "LH", 3));
  f.session->store().append(data_set("gh.dat", "GH", 3));
  f.session->store().at(0).modified = true;
  f.session->store().at(1).modified = true;
  f.ui.answers = {false, false};
  // A CSV file keeps only the points: the mark stays.
  f.run({"SELECT LH", "WRITE_CSV \"" + (out / "lh.csv").string() + "\"", "EXIT",
         "WRITE_NATIVE \"" + (out / "lh_.dat").string() + "\"", "EXIT"});
  EXPECT_FALSE(f.session->store().at(0).modified);
  EXPECT_TRUE(f.session->store().at(1).modified);
  const std::string gh =
      "Terminate the Program: Data set 2 (gh.dat) is modified and has not been "
      "written (WRITE_NATIVE).";
  EXPECT_EQ(f.ui.shown(), (Lines{"Terminate the Program: Data set 1 (lh.dat) is modified and has "
                                 "not been written (WRITE_NATIVE).",
                                 gh, gh}));
  EXPECT_FALSE(f.session->failed());
}

TEST(SharedHandler, SelectFindsASetByHandleOrFileNameAndIgnoresAnyOtherName) {
  SessionFixture f;
  auto& store = f.session->store();
  store.append(data_set("/data/lh.dat", "LH", 3));
  store.append(data_set("/data/gh.dat", "GH", 3));
  store.append(data_set("/data/fsh.dat", "FSH", 3));
  EXPECT_TRUE(handle_shared_command("SELECT LH", *f.session));
  EXPECT_EQ(store.current_index(), 0);
  EXPECT_TRUE(handle_shared_command("select \"gh.dat\"", *f.session));
  EXPECT_EQ(store.current_index(), 1);
  EXPECT_TRUE(handle_shared_command("SELECT nothing", *f.session));
  EXPECT_EQ(store.current_index(), 1);
  EXPECT_EQ(f.ui.shown(), (Lines{"COMMAND IGNORED!: SELECT nothing"}));
  const Lines log = f.log();
  EXPECT_NE(std::find(log.begin(), log.end(), "SELECTED FILE -/data/gh.dat"), log.end());
}

TEST(SharedHandler, AFailedCopyNamesTheFileKindAndTheErrorCode) {
  SessionFixture f;
  Scratch out;
  const std::string target = (out / "log copy.txt").string();
  handle_shared_command("COPY_LOG \"" + target + "\"", *f.session);
  EXPECT_EQ(Scratch::read(target).rfind("! LOG file created by ", 0), 0u);
  handle_shared_command("COPY_CMD \"" + (out / "no/such/folder.bat").string() + "\"", *f.session);
  const Lines shown = f.ui.shown();
  ASSERT_GE(shown.size(), 2u);
  // ENOENT is 2 on Linux (errno-base.h).
  EXPECT_EQ(shown[0], "Did not copy!: CMD file did not copy!");
  EXPECT_EQ(shown[1], "Did not copy!: error =2");
  EXPECT_EQ(f.history(), (Lines{"COPY_LOG \"" + target + "\""}));
}

// A copy or a write over one of the run files is refused: the history goes on whole
// (the command after them is still recorded) and the targets keep their text.
TEST(SharedHandler, NoCommandWritesOverARunFile) {
  SessionFixture f;
  f.session->store().append(data_set("/data/lh.dat", "LH", 5));
  const RunFiles& files = f.session->files();
  const std::pair<const char*, std::filesystem::path> cases[] = {
      {"COPY_LOG", files.history_path()},
      {"SAVE_AS_CMD", files.log_path()},
      {"COPY_CMD", files.kill_path()},
      {"WRITE_CSV", files.answers_path()},
      {"WRITE_NATIVE", files.graph_path()}};
  Lines commands, shown;
  for (const auto& [name, target] : cases) {
    commands.push_back(std::string(name) + " \"" + target.string() + "\"");
    shown.push_back("COMMAND IGNORED!: " + commands.back());
    shown.push_back("COMMAND IGNORED!: A file of this run cannot be written over: " +
                    target.string());
  }
  commands.push_back("SEED 9");
  f.run(commands);
  EXPECT_EQ(f.ui.shown(), shown);
  EXPECT_EQ(f.history(), (Lines{"SEED 9"}));
  EXPECT_EQ(Scratch::read(files.kill_path()).rfind("! kill file created by ", 0), 0u);
  EXPECT_EQ(Scratch::read(files.answers_path()), "");
}

TEST(SharedHandler, ACommandThatNeedsAFileNameAndHasNoneIsIgnored) {
  SessionFixture f;
  for (const char* command : {"READ_NATIVE", "SAVE_AS_LOG", "@", "CD"}) {
    EXPECT_TRUE(handle_shared_command(command, *f.session));
  }
  EXPECT_EQ(f.ui.shown(), (Lines{"COMMAND IGNORED!: READ_NATIVE", "COMMAND IGNORED!: SAVE_AS_LOG",
                                 "COMMAND IGNORED!: @", "COMMAND IGNORED!: CD"}));
}

TEST(SharedHandler, WritingWithoutDataIsIgnoredAndResetEmptiesTheStore) {
  SessionFixture f;
  EXPECT_TRUE(handle_shared_command("WRITE_NATIVE \"x.dat\"", *f.session));
  f.session->store().append(data_set("lh.dat", "LH", 3));
  EXPECT_TRUE(handle_shared_command("reset", *f.session));
  EXPECT_EQ(f.session->store().count(), 0);
  EXPECT_EQ(f.ui.shown(), (Lines{"COMMAND IGNORED!: WRITE_NATIVE \"x.dat\""}));
  EXPECT_EQ(f.history(), (Lines{"RESET"}));
}

TEST(SharedHandler, GraphicsAndSpreadsheetCommandsAnswerThatTheyAreNotAvailable) {
  SessionFixture f;
  for (const char* command : {"LOAD_GRAF \"a.grf\"", "NEXT_GRAPH", "SPREADSHEET_OPEN"}) {
    EXPECT_TRUE(handle_shared_command(command, *f.session)) << command;
  }
  const Lines shown = f.ui.shown();
  ASSERT_EQ(shown.size(), 6u);
  EXPECT_EQ(shown[0], "Graphics: Graphics are not available in this version.");
  EXPECT_EQ(shown[4], "Data SpreadSheet: The data spreadsheet is not available in this version.");
  EXPECT_TRUE(f.session->failed());
}

// Each command read from the history or the log adds a line to it, so a run of either
// would never end (the log's "SEED 4" logs "SEED 4" again).
TEST(CommandFileRuns, TheRunsOwnHistoryAndLogCannotBeRunWhileTheyAreWritten) {
  for (const auto path : {&shell::RunFiles::history_path, &shell::RunFiles::log_path}) {
    SessionFixture f;
    const std::string file = (f.session->files().*path)().string();
    f.run({"SEED 4", "@ \"" + file + "\""});
    EXPECT_EQ(f.ui.shown(), (Lines{"Command File Error: Could not open command file = " + file}));
  }
}

// A file that runs itself: ten levels open, the eleventh is refused, and the failing
// command inside does not stop any of the files.
TEST(CommandFileRuns, NestingStopsAtTenAndFailuresDoNotStopAFile) {
  SessionFixture f;
  Scratch dir;
  const auto self = dir / "self.cmd";
  dir.write("self.cmd", "BOGUS\n@ \"" + self.string() + "\"\nSEED 1\n");
  f.run({"@ \"" + self.string() + "\""});
  const Lines shown = f.ui.shown();
  EXPECT_EQ(std::count(shown.begin(), shown.end(), "COMMAND IGNORED!: BOGUS"), 10);
  EXPECT_EQ(std::count(shown.begin(), shown.end(),
                       "Command File Error: Could not open command file = " + self.string()),
            1);
  const Lines history = f.history();
  EXPECT_EQ(std::count(history.begin(), history.end(), "!cmd file = " + self.string()), 10);
  EXPECT_EQ(std::count(history.begin(), history.end(), "SEED 1"), 10);
}

}  // namespace
}  // namespace tidemark::shell
