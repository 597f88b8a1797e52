#include "shell/module_frame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "core/fortran_format.h"
#include "data/secretion_events.h"
#include "shell/session_fixture.h"

namespace tidemark::shell {
namespace {

using testing_support::data_set;
using testing_support::Scratch;
using testing_support::SessionFixture;
using Lines = std::vector<std::string>;

// A small mode for the tests: its listing holds the dialog's values and the number of
// points of the current data set, and with "Random Draw" on, one uniform deviate; its
// graph source and its one secretion event hold the Scale. Like a fit that starts the
// next time from its result, it writes twice its Scale back into the dialog, and the
// number of points into its result field.
class EchoModule : public Module {
 public:
  enum Field { kScale, kCycles, kRandomDraw, kResult };
  const ui::Dialog& dialog() const override { return dialog_; }
  std::string settings_file() const override { return "do_echo.ini"; }
  ModeResult calculate(ModuleContext& c) override {
    if (c.store.current().size() < 3) return ModeResult::failed({"Too few points"});
    const double scale = c.value<double>(kScale);
    std::string listing = "Scale = " + core::format_g15_5(scale) +
                          "\nCycles = " + std::to_string(c.value<int>(kCycles)) +
                          "\nPoints = " + std::to_string(c.store.current().size()) + "\n";
    if (c.value<bool>(kRandomDraw)) listing += std::to_string(c.random.uniform());
    c.value<double>(kScale) = 2 * scale;
    c.value<std::string>(kResult) = "Points = " + std::to_string(c.store.current().size());
    return ModeResult::done({.listing = listing,
                             .graph = "graph of scale " + core::format_g15_5(scale) + "\n",
                             .events = std::vector<data::SecretionEvent>{{scale, 0.0}}});
  }

 private:
  ui::Dialog dialog_{"ECHO TEST",
                     {{"Scale", ui::FieldKind::kReal, "2.0", "Parameters", {}},
                      {"Cycles", ui::FieldKind::kInteger, "10", "Parameters", {}},
                      {"Random Draw", ui::FieldKind::kCheck, "OFF", "Parameters", {}},
                      {"Result", ui::FieldKind::kText, "", "Results", {}, true}}};
};

// The echo mode stands in for Cluster8 (its buttons CLUSTER_...) and Concordance.
ModuleFactories echo_modes() {
  ModuleFactories modes;
  register_mode(modes, "Cluster8", [](int) { return std::make_unique<EchoModule>(); });
  register_mode(modes, "Concordance", [](int) { return std::make_unique<EchoModule>(); });
  return modes;
}

TEST(RegisterMode, AModeIsRegisteredByItsMenuNameAndAnUnknownNameIsAFault) {
  ModuleFactories modes;
  register_mode(modes, "gold_method", [](int) { return std::make_unique<EchoModule>(); });
  EXPECT_TRUE(modes[*find_mode("Gold_Method") - 1]);
  EXPECT_EQ(std::count_if(modes.begin(), modes.end(), [](const auto& m) { return bool(m); }), 1);
  EXPECT_THROW(register_mode(modes, "Gold", {}), std::invalid_argument);
}

// The history lines of entering the echo mode: its name, then every field it starts
// with.
Lines entered(const std::string& mode, const Lines& then,
              const Lines& starting = {"SET Scale = 2", "SET Cycles = 10",
                                       "SET Random Draw = OFF"}) {
  Lines lines{"MODE " + mode};
  lines.insert(lines.end(), starting.begin(), starting.end());
  lines.insert(lines.end(), then.begin(), then.end());
  return lines;
}

class ModuleFrame : public testing::Test {
 protected:
  ModuleFrame() : f(echo_modes()) { f.session->store().append(data_set("lh.dat", "LH", 5)); }
  std::filesystem::path settings() const { return f.session->folders().system / "do_echo.ini"; }
  SessionFixture f;
};

TEST_F(ModuleFrame, SetChangesOneFieldAndSaveParametersWritesTheSettingsFile) {
  f.run({"MODE Cluster8", "SET cycles = 7", "SAVE_PARAMETERS"});
  // 2.0 as gfortran writes it with (1PG15.5).
  EXPECT_EQ(Scratch::read(settings()), "Scale =      2.0000    \nCycles = 7\nRandom Draw = OFF\n");
  EXPECT_EQ(f.history(), entered("Cluster8", {"SET Cycles = 7", "SAVE_PARAMETERS"}));
  EXPECT_FALSE(f.session->failed());
}

// What CLUSTER_VIEW shows after CLUSTER_CALCULATE when do_echo.ini holds `settings`.
std::string listing_with_settings(SessionFixture& f, const std::string& settings) {
  std::ofstream(f.session->folders().system / "do_echo.ini") << settings;
  f.run({"MODE Cluster8", "CLUSTER_CALCULATE", "CLUSTER_VIEW"});
  return f.ui.texts.empty() ? "" : f.ui.texts[0];
}

TEST_F(ModuleFrame, TheSettingsFileIsReadOnEntry) {
  // 4.5 as gfortran writes it with (1PG15.5).
  EXPECT_EQ(listing_with_settings(f, "Scale = 4.5\nCycles = 3\nRandom Draw = OFF\n"),
            "Scale =      4.5000    \nCycles = 3\nPoints = 5\n");
}

// A settings file saved on another system (CRLF), with a comment and a line the mode
// does not know: the rest is read, and the log names what was ignored.
TEST_F(ModuleFrame, ASettingsFileIsReadAsFarAsItReadsAndTheRestIsLogged) {
  EXPECT_EQ(listing_with_settings(f,
                                  "! by hand\r\nScale = 4.5\r\nColour = red\r\n"
                                  "Cycles = three\r\nRandom Draw = OFF\r\n"),
            "Scale =      4.5000    \nCycles = 10\nPoints = 5\n");
  const std::string file = settings().string();
  const Lines log = f.log();
  EXPECT_NE(std::find(log.begin(), log.end(),
                      "Settings file " + file +
                          ": line 3 (Colour = red): The dialog \"ECHO TEST\" has no field "
                          "\"Colour\""),
            log.end());
  EXPECT_NE(std::find(log.begin(), log.end(),
                      "Settings file " + file +
                          ": line 4 (Cycles = three): \"three\" is not a valid value for the "
                          "field \"Cycles\" (a whole number)"),
            log.end());
}

// The history records every value the mode starts with, from its settings file or its
// defaults, and every SET exactly as given, so a replay anywhere uses the same values.
TEST_F(ModuleFrame, TheHistoryCarriesTheStartingValuesAndExactSetValues) {
  std::ofstream(settings()) << "Scale =     0.35000    \nCycles = 7\nRandom Draw = ON\n";
  f.run({"MODE Cluster8", "SET Scale = 1234.56789", "SET Scale = 0.1"});
  EXPECT_EQ(f.history(), entered("Cluster8", {"SET Scale = 1234.56789", "SET Scale = 0.1"},
                                 {"SET Scale = 0.35", "SET Cycles = 7", "SET Random Draw = ON"}));
}

TEST_F(ModuleFrame, RefusedSettingsAndComputationErrorsAreTitledWithTheMode) {
  f.session->store().append(data_set("short.dat", "S", 2));
  f.run({"MODE Cluster8", "SET Scale = big", "SET Colour = red", "CLUSTER_CALCULATE"});
  EXPECT_EQ(f.ui.shown(),
            (Lines{"Error Reported by Cluster8: \"big\" is not a valid value for the field "
                   "\"Scale\" (a real number)",
                   "Error Reported by Cluster8: The dialog \"ECHO TEST\" has no field \"Colour\"",
                   "Error Reported by Cluster8: Too few points"}));
  // Refused settings are not recorded; the calculation is, though it failed, because a
  // replay must take the same step.
  EXPECT_EQ(f.history(), entered("Cluster8", {"CLUSTER_CALCULATE"}));
  EXPECT_TRUE(f.session->failed());
}

TEST_F(ModuleFrame, StoreAndRecallConfirmOrRefuse) {
  f.run(
      {"MODE Cluster8", "RECALL_RESULTS", "CLUSTER_CALCULATE", "STORE_RESULTS", "RECALL_RESULTS"});
  EXPECT_EQ(f.ui.shown(),
            (Lines{"Cluster8: No results have been stored.", "Cluster8: Current Results Stored",
                   "Cluster8: Current Results Recalled"}));
}

// What STORE_RESULTS kept comes back whole: the listing, the graph source, the result
// field and the secretion events the calculation left on its data set.
TEST_F(ModuleFrame, RecallBringsBackTheListingGraphResultFieldsAndEvents) {
  Scratch out;
  const auto copies = [&](const std::string& tag) {
    return std::vector<std::string>{"COPY_LST \"" + (out / (tag + ".lst")).string() + "\"",
                                    "COPY_GRF \"" + (out / (tag + ".grf")).string() + "\""};
  };
  std::vector<std::string> commands{"MODE Cluster8", "CLUSTER_CALCULATE", "STORE_RESULTS",
                                    "SET Cycles = 3", "CLUSTER_CALCULATE"};
  for (const auto& c : copies("second")) commands.push_back(c);
  commands.push_back("RECALL_RESULTS");
  for (const auto& c : copies("recalled")) commands.push_back(c);
  f.run(commands);
  ASSERT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
  // The first run used Scale 2 and Cycles 10, the second Scale 4 (written back) and 3;
  // 2.0 and 4.0 as gfortran writes them with (1PG15.5).
  EXPECT_EQ(Scratch::read(out / "second.lst"), "Scale =      4.0000    \nCycles = 3\nPoints = 5\n");
  EXPECT_EQ(Scratch::read(out / "second.grf"), "graph of scale      4.0000    \n");
  EXPECT_EQ(Scratch::read(out / "recalled.lst"),
            "Scale =      2.0000    \nCycles = 10\nPoints = 5\n");
  EXPECT_EQ(Scratch::read(out / "recalled.grf"), "graph of scale      2.0000    \n");
  const auto events = data::secretion_events(f.session->store().at(0));
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].position, 2.0);
  EXPECT_EQ(std::get<std::string>(f.ui.dialog_values[EchoModule::kResult]), "Points = 5");
}

// The recalled result field is the stored one, not the last calculation's.
TEST_F(ModuleFrame, RecallOnAnotherDataSetBringsBackItsResultField) {
  f.session->store().append(data_set("fsh.dat", "FSH", 7));
  f.run({"MODE Cluster8", "SELECT LH", "CLUSTER_CALCULATE", "STORE_RESULTS", "SELECT FSH",
         "CLUSTER_CALCULATE", "RECALL_RESULTS"});
  EXPECT_EQ(std::get<std::string>(f.ui.dialog_values[EchoModule::kResult]), "Points = 5");
}

// A graph that cannot be written is reported with the file's name and the reason; the
// listing is written all the same.
TEST_F(ModuleFrame, AFailedWriteIsReportedWithTheFileAndTheReason) {
  const std::filesystem::path graph = f.session->files().graph_path();
  std::filesystem::remove(graph);
  std::filesystem::create_directory(graph);
  Scratch out;
  f.run({"MODE Cluster8", "CLUSTER_CALCULATE", "COPY_LST \"" + (out / "a.lst").string() + "\""});
  const Lines shown = f.ui.shown();
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_NE(shown[0].find("Error Reported by Cluster8: The graph was not written."),
            std::string::npos);
  EXPECT_NE(shown[0].find(graph.string()), std::string::npos);
  EXPECT_NE(shown[0].find("directory"), std::string::npos) << shown[0];
  EXPECT_EQ(Scratch::read(out / "a.lst"), "Scale =      2.0000    \nCycles = 10\nPoints = 5\n");
}

TEST_F(ModuleFrame, ViewingOrCopyingBeforeACalculationIsRefusedAndCopiesAfterIt) {
  Scratch out;
  const std::string copy = (out / "copy.lst").string();
  f.run({"MODE Cluster8", "CLUSTER_VIEW", "CLUSTER_CALCULATE", "COPY_LST \"" + copy + "\""});
  EXPECT_EQ(f.ui.shown().size(), 1u);
  EXPECT_EQ(Scratch::read(copy), "Scale =      2.0000    \nCycles = 10\nPoints = 5\n");
}

TEST_F(ModuleFrame, SharedCommandsComeFirstAndUnknownOnesAreIgnored) {
  f.run({"MODE Cluster8", "SEED 42", "CLUSTER_NONSENSE", "CLUSTER_CALCULATE"});
  EXPECT_EQ(f.ui.shown(), (Lines{"COMMAND IGNORED!: CLUSTER_NONSENSE"}));
  EXPECT_EQ(f.history(), entered("Cluster8", {"SEED 42", "CLUSTER_CALCULATE"}));
}

TEST_F(ModuleFrame, FieldsAModeWritesBackAreShownAndHoldUntilTheUserSetsThem) {
  Scratch out;
  const auto copy = [&](const char* name) { return "COPY_LST \"" + (out / name).string() + "\""; };
  f.run({"MODE Cluster8", "SET Result = 3", "CLUSTER_CALCULATE", copy("1.lst"), "CLUSTER_CALCULATE",
         copy("2.lst"), "SET Scale = 5", "CLUSTER_CALCULATE", copy("3.lst")});
  // Scale 2 (the default), then 4 written back by the first calculation, then 5 as set;
  // as gfortran writes them with (1PG15.5).
  EXPECT_EQ(Scratch::read(out / "1.lst").substr(0, 24), "Scale =      2.0000    \n");
  EXPECT_EQ(Scratch::read(out / "2.lst").substr(0, 24), "Scale =      4.0000    \n");
  EXPECT_EQ(Scratch::read(out / "3.lst").substr(0, 24), "Scale =      5.0000    \n");
  EXPECT_EQ(f.ui.dialog_updates, 3);
  ASSERT_EQ(f.ui.dialog_values.size(), 4u);
  EXPECT_EQ(std::get<double>(f.ui.dialog_values[0]), 10.0);
  EXPECT_EQ(std::get<std::string>(f.ui.dialog_values[3]), "Points = 5");
  EXPECT_EQ(f.ui.shown(), (Lines{"Error Reported by Cluster8: The field \"Result\" shows a "
                                 "result and cannot be set"}));
}

TEST_F(ModuleFrame, ListingAndFixFileNamesGoToTheKillList) {
  f.run({"MODE Cluster8"});
  const std::string kill = Scratch::read(f.session->files().kill_path());
  EXPECT_NE(kill.find("/LIST_"), std::string::npos);
  EXPECT_NE(kill.find("/FIX_"), std::string::npos);
}

// After a two-series mode with one data set, the shell passes one command to the shared
// handler before a driver runs again: the first CLUSTER_CALCULATE is nobody's command.
TEST_F(ModuleFrame, LeavingATwoSeriesModeWithOneSetGivesTheSharedHandlerOneCommand) {
  f.run({"MODE Concordance", "MODE Cluster8", "CLUSTER_CALCULATE", "CLUSTER_CALCULATE"});
  EXPECT_EQ(f.ui.shown(), (Lines{"COMMAND IGNORED!: CLUSTER_CALCULATE"}));
  Lines expected = entered("Concordance", {});
  const Lines then = entered("Cluster8", {"CLUSTER_CALCULATE"});
  expected.insert(expected.end(), then.begin(), then.end());
  EXPECT_EQ(f.history(), expected);
}

// A run's history, run as a command file by a second session, writes the same listing:
// the SET lines carry the dialog's values and the SEED line the random sequence.
TEST(ModuleFrameReplay, TheHistoryReproducesTheListingByteForByte) {
  Scratch out;
  SessionFixture first(echo_modes());
  first.session->store().append(data_set("lh.dat", "LH", 5));
  first.run({"SEED 99", "MODE Cluster8", "SET Scale = 0.125", "SET Random Draw = ON",
             "CLUSTER_CALCULATE", "COPY_LST \"" + (out / "first.lst").string() + "\""});
  const std::string listing = Scratch::read(out / "first.lst");
  std::filesystem::remove(out / "first.lst");
  SessionFixture second(echo_modes());
  second.session->store().append(data_set("lh.dat", "LH", 5));
  second.session->random().seed(1);  // another start-up seed
  second.run({"@ \"" + first.session->files().history_path().string() + "\""});
  ASSERT_FALSE(second.session->failed()) << testing::PrintToString(second.ui.shown());
  // 0.125 as gfortran writes it with (1PG15.5).
  EXPECT_NE(listing.find("Scale =     0.12500    \n"), std::string::npos);
  EXPECT_EQ(Scratch::read(out / "first.lst"), listing);  // written again by the replay
}

// After a calculation on lh.dat and a failed one on short.dat (too few points), the
// listing and graph on show are still lh.dat's: copying them says so; after the next
// calculation that succeeds, a copy says nothing.
TEST_F(ModuleFrame, ACopyAfterAFailedCalculationNamesTheDataSetTheResultsBelongTo) {
  f.session->store().append(data_set("short.dat", "S", 2));
  Scratch out;
  const std::string lst = (out / "copy.lst").string(), grf = (out / "copy.grf").string();
  f.run({"MODE Cluster8", "SELECT \"lh.dat\"", "CLUSTER_CALCULATE", "SELECT \"short.dat\"",
         "CLUSTER_CALCULATE", "COPY_LST \"" + lst + "\"", "COPY_GRF \"" + grf + "\""});
  const std::string line =
      "Cluster8: The results shown belong to an earlier calculation, on data set lh.dat: the "
      "last calculation, on data set short.dat, failed.";
  const Lines shown = f.ui.shown();
  EXPECT_EQ(std::count(shown.begin(), shown.end(), line), 2) << testing::PrintToString(shown);
  EXPECT_NE(Scratch::read(lst).find("Points = 5"), std::string::npos);

  SessionFixture again(echo_modes());
  again.session->store().append(data_set("lh.dat", "LH", 5));
  again.run({"MODE Cluster8", "CLUSTER_CALCULATE", "COPY_LST \"" + lst + "\""});
  EXPECT_TRUE(again.ui.shown().empty()) << testing::PrintToString(again.ui.shown());
}

}  // namespace
}  // namespace tidemark::shell
