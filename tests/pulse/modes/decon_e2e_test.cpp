// The program itself on command files: AutoDecon and Deconv on simulated data sets, the
// Deconv event commands, and refused input.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "data/native_reader.h"
#include "data/secretion_events.h"
#include "shell/program_runner.h"
#include "ui/console_ui.h"

namespace tidemark::pulse {
namespace {

using testing_support::run_tidemark;
using testing_support::Scratch;

// Four events of mass 10 (LogHeight 0 at SD 4) on a basal level of 6.5, half-life 45.
constexpr const char* kSimulate =
    "SIMULATE SEED=3 EVENTS=200:0,500:0,800:0,1100:0 NOISE_CV=0.05 HANDLE=SIM\n";

TEST(DeconProgram, AutoDeconFindsTheEventsAndKeepsThemOnTheDataSet) {
  Scratch home, work;
  work.write("run.cmd", std::string(kSimulate) +
                            "MODE AutoDecon\n"
                            "DECON_CALCULATE\n"
                            "COPY_LST \"decon.lst\"\n"
                            "SAVE_GRF_PNG \"decon.png\"\n"
                            "WRITE_NATIVE \"out.dat\"\n"
                            "EXIT\n");
  const auto run = run_tidemark(home.path(), work.path(), {"-@", "run.cmd"}, "");
  ASSERT_EQ(run.status, 0) << run.err;
  const std::string listing = Scratch::read(work / "decon.lst");
  EXPECT_EQ(listing.rfind(" AutoDecon Deconvolution\n", 0), 0u) << listing;
  EXPECT_NE(listing.find(" AutoInit Estimated SD ="), std::string::npos);
  EXPECT_NE(listing.find(" AutoInit Estimated HL ="), std::string::npos);

  data::Store store;
  ui::RecordingUi ui;
  ui::MemoryLog log;
  ASSERT_TRUE(data::read_native(store, (work / "out.dat").string(), ui, log));
  const auto events = data::secretion_events(store.current());
  // Every true event is found; at the default critical P one false event may pass.
  ASSERT_GE(events.size(), 4u);
  EXPECT_LE(events.size(), 5u);
  for (const double truth : {200.0, 500.0, 800.0, 1100.0}) {
    const bool found = std::any_of(events.begin(), events.end(), [&](const data::SecretionEvent& e) {
      return std::fabs(e.position - truth) < 10.0;
    });
    EXPECT_TRUE(found) << truth;
  }
  EXPECT_NEAR(store.current().answers[3], 45.0, 9.0);  // HALF-LIFE(1)
}

// A recall puts the kept calculation's model parameters back on the data set, with its
// events: the second calculation held HALF-LIFE(1) at 70, the first fitted it near 45.
TEST(DeconProgram, RecallBringsBackTheKeptParametersAndEvents) {
  Scratch home, work;
  work.write("run.cmd", std::string(kSimulate) +
                            "MODE AutoDecon\n"
                            "DECON_CALCULATE\n"
                            "WRITE_NATIVE \"first.dat\"\n"
                            "STORE_RESULTS\n"
                            "SET Fit HALF-LIFE(1) = OFF\n"
                            "SET HALF-LIFE(1) = 70\n"
                            "SET Starting Events = None\n"
                            "DECON_CALCULATE\n"
                            "WRITE_NATIVE \"second.dat\"\n"
                            "RECALL_RESULTS\n"
                            "WRITE_NATIVE \"recalled.dat\"\n"
                            "EXIT\n");
  const auto run = run_tidemark(home.path(), work.path(), {"-@", "run.cmd"}, "");
  ASSERT_EQ(run.status, 0) << run.err;
  const auto read = [&](const char* name) {
    data::Store store;
    ui::RecordingUi ui;
    ui::MemoryLog log;
    EXPECT_TRUE(data::read_native(store, (work / name).string(), ui, log)) << name;
    return store.current();
  };
  const data::DataSet first = read("first.dat");
  const data::DataSet second = read("second.dat");
  const data::DataSet recalled = read("recalled.dat");
  EXPECT_NEAR(first.answers[3], 45.0, 9.0);
  EXPECT_EQ(second.answers[3], 70.0);
  for (int j = 0; j < data::kModelParameterCount; ++j) {
    EXPECT_EQ(recalled.answers[j], first.answers[j]) << "answer " << j + 1;
  }
  EXPECT_EQ(data::secretion_events(recalled), data::secretion_events(first));
}

TEST(DeconProgram, DeconvFitsTheEventsTheUserGives) {
  Scratch home, work;
  work.write("run.cmd", std::string(kSimulate) +
                            "MODE Deconv\n"
                            "SET Starting Events = None\n"
                            "SET HALF-LIFE(1) = 40\n"
                            "SET SEC. SD. = 5\n"
                            "DECON_EVENT_ADD 190 0.1\n"
                            "DECON_EVENT_ADD 510\n"
                            "DECON_EVENT_ADD 810\n"
                            "DECON_EVENT_ADD 1000\n"
                            "DECON_EVENT_REMOVE 4\n"
                            "DECON_EVENT_ADD 1090\n"
                            "DECON_EVENT_FIX 4\n"
                            "DECON_CALCULATE\n"
                            "COPY_LST \"deconv.lst\"\n"
                            "DECON_EVENT_REMOVE 9\n"
                            "EXIT\n");
  const auto run = run_tidemark(home.path(), work.path(), {"-@", "run.cmd"}, "");
  EXPECT_NE(run.err.find("DECON_EVENT_REMOVE takes the number of an event, 1 to 4."),
            std::string::npos) << run.err;
  const std::string listing = Scratch::read(work / "deconv.lst");
  EXPECT_EQ(listing.rfind(" Deconv Deconvolution\n", 0), 0u) << listing;
  EXPECT_NE(listing.find(" Number of Events =     4\n"), std::string::npos) << listing;
  EXPECT_EQ(listing.find("AutoInit Estimated"), std::string::npos);
  // The fixed fourth event stays where it was put.
  EXPECT_NE(listing.find("     4     1090.0    "), std::string::npos) << listing;
}

// A data set of 24 points whose concentrations are all missing (NaN reads as missing).
std::string all_missing_file() {
  std::string text = "!HANDLE = GONE\n!header_x = TIME\n!header_y = LH\n!header_dy = SD\n";
  for (int i = 0; i < 24; ++i) text += std::to_string(10 * i) + " NaN 0.5 1\n";
  return text;
}

// Deconv fitted once: the failed fits below must leave these results on the data set.
constexpr const char* kDeconvFitted =
    "MODE Deconv\n"
    "SET Starting Events = None\n"
    "SET HALF-LIFE(1) = 40\n"
    "DECON_EVENT_ADD 190\nDECON_EVENT_ADD 510\nDECON_EVENT_ADD 810\nDECON_EVENT_ADD 1090\n"
    "DECON_CALCULATE\n";

// Each refusal or failed fit ends the run with status 1, shows its message and logs it,
// leaves a listing that says why, and leaves the data set as the file written before
// the calculation holds it, byte for byte.
TEST(DeconProgram, RefusedInputLeavesTheDataSetAndSaysWhy) {
  struct Case {
    const char* name;
    std::string setup;        // before the data set is written the first time
    const char* calculation;  // the refused or failing steps
    const char* message;
  };
  const std::string fitted = std::string(kSimulate) + kDeconvFitted;
  const Case cases[] = {
      // The data conditioner refuses SDs of zero before the fit sees them.
      {"SDs of zero", "SIMULATE SEED=3 NOISE_CV=0 HANDLE=SIM\nMODE AutoDecon\n", "DECON_CALCULATE\n",
       "has too small of an uncertainty"},
      {"too few points", "SIMULATE SEED=3 SAMPLES=5 HANDLE=SIM\nMODE AutoDecon\n", "DECON_CALCULATE\n",
       "Too few samples to deconvolve: 5"},
      // No point has a concentration: the conditioner finds fewer than 4 valid points.
      {"all missing", "READ_NATIVE \"gone.dat\"\nMODE AutoDecon\n", "DECON_CALCULATE\n",
       "The data set could not be conditioned: Not Enough Valid Data Points!"},
      {"half-life beyond the span",
       std::string(kSimulate) + "MODE Deconv\nSET Starting Events = None\nSET HALF-LIFE(1) = 5000\n",
       "DECON_CALCULATE\n", "HALF-LIFE(1) = 5000.0 lies outside the series' span"},
      // 10^400 is beyond the largest double (about 1.8E308): the starting vector cannot
      // be evaluated, LSFIT2's code 1.
      {"start that overflows", fitted, "DECON_EVENT_ADD 600 400\nDECON_CALCULATE\n",
       "The fit failed with code 1: The model could not be evaluated"},
      // Two free events at one time have equal columns in the Jacobian, so the normal
      // equations are singular: LSFIT2's code 2.
      {"two events at one time", fitted, "DECON_EVENT_ADD 600\nDECON_EVENT_ADD 600\nDECON_CALCULATE\n",
       "The fit failed with code 2: The normal equations are singular"},
  };
  for (const Case& c : cases) {
    Scratch home, work;
    work.write("gone.dat", all_missing_file());
    work.write("run.cmd", c.setup + "WRITE_NATIVE \"before.dat\"\n" + c.calculation +
                              "COPY_LST \"refused.lst\"\nWRITE_NATIVE \"after.dat\"\nEXIT\n");
    const auto run = run_tidemark(home.path(), work.path(), {"-@", "run.cmd"}, "");
    EXPECT_EQ(run.status, 1) << c.name;
    EXPECT_NE(run.err.find(c.message), std::string::npos) << c.name << ": " << run.err;
    const std::string log = Scratch::read(testing_support::run_file(home.path(), "LOG_"));
    EXPECT_NE(log.find(c.message), std::string::npos) << c.name << ": " << log;
    const std::string listing = Scratch::read(work / "refused.lst");
    EXPECT_NE(listing.find(c.message), std::string::npos) << c.name << ": " << listing;
    const std::string before = Scratch::read(work / "before.dat");
    EXPECT_NE(before.find("\n!HANDLE = "), std::string::npos) << c.name;
    EXPECT_EQ(Scratch::read(work / "after.dat"), before) << c.name;
  }
}

}  // namespace
}  // namespace tidemark::pulse
