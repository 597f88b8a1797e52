// The SIMULATE command: its arguments, the data set it adds with its truth, and refusals
// that change nothing.
#include "pulse/modes/simulate_commands.h"

#include <gtest/gtest.h>

#include "core/missing.h"
#include "data/secretion_events.h"
#include "pulse/modes/cluster8_mode.h"
#include "pulse/modes/simulate_arguments.h"
#include "shell/session_fixture.h"

namespace tidemark::pulse {
namespace {

using testing_support::SessionFixture;
using Lines = std::vector<std::string>;

TEST(SimulateArguments, KeysSetTheModelGridAndNoiseAndTheRestKeepDefaults) {
  struct Case {
    std::string text;
    int half_lives;
    std::vector<double> fixed;
    bool draw;
    std::size_t events;
  };
  const Case cases[] = {
      {"", 1, {0.1, 0, 4, 45}, true, 0},
      {"hl2=200 F2 = 0.3", 2, {0.1, 0, 4, 45, 0.3, 200}, true, 0},
      {"HL2=200 HL3=600 F3=0.1 BASAL=1D-1", 3, {0.1, 0, 4, 45, 0.5, 200, 0.1, 600}, true, 0},
      {"EVENTS=100:0.5,400:0.8 SD=3 C0=12", 1, {0.1, 12, 3, 45}, false, 2},
      {"EVENTS=NONE", 1, {0.1, 0, 4, 45}, false, 0},
  };
  for (const Case& c : cases) {
    const SimulateArgumentsResult p = parse_simulate_arguments(c.text);
    ASSERT_TRUE(p.ok()) << c.text << ": " << p.message;
    EXPECT_EQ(p.request.options.half_lives, c.half_lives) << c.text;
    EXPECT_EQ(p.request.options.fixed, c.fixed) << c.text;
    EXPECT_EQ(p.request.options.draw, c.draw) << c.text;
    EXPECT_EQ(p.request.options.events.size(), c.events) << c.text;
  }
  const SimulateArgumentsResult p = parse_simulate_arguments("SAMPLES=30 REPS=3 HANDLE=X1 SEED=12");
  EXPECT_EQ(p.request.options.samples, 30);
  EXPECT_EQ(p.request.options.replicates, 3);
  EXPECT_EQ(p.request.handle, "X1");
  EXPECT_EQ(p.request.seed, 12u);
}

TEST(SimulateArguments, NamesTheWordThatDoesNotRead) {
  const std::pair<std::string, std::string> cases[] = {
      {"COLOUR=red", "SIMULATE: unknown key \"COLOUR\""},
      {"SD=abc", "SIMULATE: \"SD=abc\" does not read"},
      {"SAMPLES=2.5", "SIMULATE: \"SAMPLES=2.5\" does not read"},
      {"EVENTS=100", "SIMULATE: \"EVENTS=100\" does not read"},
      {"SEED=-1", "SIMULATE: \"SEED=-1\" does not read"},
      {"HL1", "SIMULATE: \"HL1\" does not read"},
      {"HL3=100", "SIMULATE: HL3 needs HL2, F2 needs HL2 and F3 needs HL3"},
  };
  for (const auto& [text, message] : cases) {
    const SimulateArgumentsResult p = parse_simulate_arguments(text);
    EXPECT_FALSE(p.ok()) << text;
    EXPECT_EQ(p.message, message);
  }
}

class SimulateCommand : public testing::Test {
 protected:
  SimulateCommand() { f.session->set_simulator(make_simulate_commands()); }
  SessionFixture f;
};

TEST_F(SimulateCommand, AddsACurrentDataSetWithItsTruthWithoutDataLoaded) {
  const std::string command = "SIMULATE EVENTS=100:0.5 SAMPLES=30 NOISE_CV=0 NOISE_SD=0.1 REPS=4";
  f.run({command});
  ASSERT_EQ(f.session->store().count(), 1);
  const data::DataSet& set = f.session->store().current();
  EXPECT_EQ(set.handle, "SIM");
  EXPECT_EQ(set.size(), 30);
  EXPECT_FLOAT_EQ(set.dy()[0], 0.05f);  // 0.1 / sqrt(4)
  EXPECT_EQ(set.reps()[0], 4.0f);
  EXPECT_EQ(set.answers[3], 45.0);                // HALF-LIFE(1)
  EXPECT_TRUE(core::is_missing(set.answers[4]));  // no second half-life
  const auto events = data::secretion_events(set);
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].position, 100.0);
  EXPECT_EQ(events[0].log_height, 0.5);
  EXPECT_TRUE(set.modified);  // no file holds it: EXIT warns until WRITE_NATIVE
  EXPECT_EQ(f.history(), (Lines{command}));
  EXPECT_EQ(f.log().back(), "SIMULATE: 30 points, 1 events, handle SIM");
}

TEST_F(SimulateCommand, ARefusalAddsNothingAndLeavesTheGeneratorAsItWas) {
  core::Random expected = f.session->random();
  // Drawing events every 10 minutes over 9000 needs more than 96 events.
  f.run({"SIMULATE SAMPLES=901 MEAN_INTERVAL=10", "SIMULATE SD=x"});
  EXPECT_TRUE(f.session->store().empty());
  EXPECT_EQ(f.ui.shown().size(), 2u);
  EXPECT_EQ(f.ui.shown()[1], "Simulation Error: SIMULATE: \"SD=x\" does not read");
  EXPECT_EQ(f.session->random().next(), expected.next());
  EXPECT_TRUE(f.session->failed());
}

TEST_F(SimulateCommand, TheSeedKeyMakesTheSeriesRepeatable) {
  f.run({"SIMULATE SEED=9 HANDLE=A", "SIMULATE HANDLE=B", "SIMULATE SEED=9 HANDLE=C"});
  ASSERT_EQ(f.session->store().count(), 3);
  EXPECT_EQ(f.session->store().at(0).y(), f.session->store().at(2).y());
  EXPECT_NE(f.session->store().at(0).y(), f.session->store().at(1).y());
}

// An analysis leaves its events in the answers slots, where the simulated events were;
// the truth stays on the set, as SIMULATE made it.
TEST(SimulatedTruth, StaysWhenAnAnalysisWritesItsEvents) {
  SessionFixture f(testing_support::only_mode(3, [](int) { return make_cluster8_mode(); }));
  f.session->set_simulator(make_simulate_commands());
  f.run({"SIMULATE SEED=3 EVENTS=200:0,500:0,800:0,1100:0 NOISE_CV=0.05", "MODE Cluster8",
         "CLUSTER_CALCULATE"});
  ASSERT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
  const data::DataSet& set = f.session->store().current();
  const std::vector<data::SecretionEvent> truth = {{200, 0}, {500, 0}, {800, 0}, {1100, 0}};
  ASSERT_TRUE(set.truth.known());
  EXPECT_EQ(set.truth.events, truth);
  ASSERT_EQ(set.truth.parameters.size(), 8u);
  EXPECT_EQ(set.truth.parameters[3], 45.0);  // HALF-LIFE(1), SIMULATE's default
  // Cluster8's peaks lie on its sampling grid with heights from the concentration rise.
  const auto found = data::secretion_events(set);
  ASSERT_FALSE(found.empty());
  EXPECT_NE(found, truth);
}

}  // namespace
}  // namespace tidemark::pulse
