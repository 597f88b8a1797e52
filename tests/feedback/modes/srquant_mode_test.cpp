// The SRQuant mode through its commands, in a session with the data sets built here: a
// simulated drive whose parameters the fit recovers, the refusals of input it cannot
// use (the data sets stay as they were), and the parameter commands.
#include "feedback/modes/srquant_mode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "shell/session_fixture.h"

namespace tidemark::feedback {
namespace {

using testing_support::SessionFixture;

constexpr int kSRQuantIndex = 13;

// The truth of the simulated drive: testosterone secreted at
//   S(t) = 0.02 + 0.5 x(t - 30)^2 / (4^2 + x(t - 30)^2)
// and eliminated with a half-life of 60 minutes from 20 at t = 0.
constexpr double kDelay = 30, kEfficacy = 0.5, kEc50 = 4, kHill = 2, kBasal = 0.02,
                 kHalfLife = 60;

// An LH-like input every 10 minutes for a day: 2 plus pulses of heights 4, 6, 3, 5 (in
// turn) that decay with a half-life of 40 minutes.
std::vector<double> lh_values() {
  const double pulses[] = {30, 125, 230, 320, 440, 530, 650, 760, 850, 960, 1070, 1180, 1290, 1390};
  const double heights[] = {4, 6, 3, 5};
  std::vector<double> x;
  for (int i = 0; i < 144; ++i) {
    const double t = 10.0 * i;
    double v = 2;
    for (int j = 0; j < 14; ++j) {
      if (t >= pulses[j]) v += heights[j % 4] * std::exp2(-(t - pulses[j]) / 40);
    }
    x.push_back(static_cast<float>(v));  // as the data set will hold it
  }
  return x;
}

// The output of the model at the sample times, integrated by fourth-order Runge-Kutta in
// steps of 0.05 minutes with the input interpolated linearly between its samples (as
// the model reads it), independently of the kernel's scheme.
std::vector<double> testosterone(const std::vector<double>& x) {
  const auto input = [&x](double t) {
    const double u = std::clamp(t / 10, 0.0, 143.0);
    const auto j = std::min(static_cast<std::size_t>(u), std::size_t{142});
    return x[j] + (u - static_cast<double>(j)) * (x[j + 1] - x[j]);
  };
  const double k = std::log(2.0) / kHalfLife;
  const auto rate = [&](double t, double c) {
    const double v = std::pow(input(t - kDelay), kHill);
    return kBasal + kEfficacy * v / (std::pow(kEc50, kHill) + v) - k * c;
  };
  std::vector<double> out{20};
  double c = 20, t = 0;
  const double h = 0.05;
  for (int i = 1; i < 144; ++i) {
    for (int s = 0; s < 200; ++s) {
      const double k1 = rate(t, c), k2 = rate(t + h / 2, c + h / 2 * k1),
                   k3 = rate(t + h / 2, c + h / 2 * k2), k4 = rate(t + h, c + h * k3);
      c += h / 6 * (k1 + 2 * k2 + 2 * k3 + k4);
      t += h;
    }
    out.push_back(c);
  }
  return out;
}

data::DataSet series(const std::string& file, const std::string& handle,
                     const std::vector<double>& values, double first_time = 0,
                     double step = 10) {
  data::DataSet set;
  set.file_name = file;
  set.handle = handle;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto v = static_cast<float>(values[i]);
    set.push_point({static_cast<float>(first_time + step * static_cast<double>(i)), v, 0.05f * v,
                    1, 0, 0, 0, 0});
  }
  return set;
}

// Data sets: 1 testosterone, 2 LH, 3 LH far later (5000 on), 4 three points of
// testosterone, 5 LH with its times out of order.
class SRQuantMode : public testing::Test {
 protected:
  SRQuantMode() : f(make()) { fill(f); }
  static testing_support::SessionFixture make() {
    return SessionFixture(
        testing_support::only_mode(kSRQuantIndex, [](int) { return make_srquant_mode(); }));
  }
  static void fill(SessionFixture& s) {
    const std::vector<double> lh = lh_values();
    const std::vector<double> testo = testosterone(lh);
    data::Store& store = s.session->store();
    store.append(series("testo.dat", "T", testo));
    store.append(series("lh.dat", "LH", lh));
    store.append(series("late.dat", "LATE", lh, 5000));
    store.append(series("short.dat", "SHORT", {testo.begin() + 10, testo.begin() + 13}, 100));
    data::DataSet back = series("back.dat", "BACK", lh);
    std::swap(back.x()[5], back.x()[6]);
    store.append(back);
  }
  static std::vector<std::vector<float>> columns(const SessionFixture& s) {
    std::vector<std::vector<float>> all;
    for (int i = 0; i < s.session->store().count(); ++i) {
      const data::DataSet& set = s.session->store().at(i);
      all.insert(all.end(), {set.x(), set.y(), set.dy(), set.reps()});
    }
    return all;
  }
  std::string last_listing() const { return f.ui.texts.empty() ? "" : f.ui.texts.back(); }
  SessionFixture f;
};

TEST_F(SRQuantMode, RecoversTheDelayPotencyAndEfficacyOfASimulatedDrive) {
  f.run({"SEED 11", "MODE SRQuant", "SET Output Data Set = 1", "SET Input 1 Data Set = 2",
         "Dose_Response_PARAMETER \"Delay 1\" 20 0 60 FIT", "DOSE_RESPONSE_CALCULATE",
         "DOSE_RESPONSE_VIEW"});
  ASSERT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown()) << last_listing();
  const data::SummaryRow& row = f.session->store().at(0).summary;
  ASSERT_TRUE(row.contains("CI")) << last_listing();
  // One sampling interval for the delay, 10 % for EC50 and efficacy.
  EXPECT_NEAR(row.at("CI").value, kDelay, 10) << last_listing();
  EXPECT_NEAR(row.at("CK").value / kEfficacy, 1, 0.1) << last_listing();
  EXPECT_NEAR(row.at("CL").value / kEc50, 1, 0.1) << last_listing();
  // Delays up to 60 reach the output from t = 60 on: 6 points before.
  EXPECT_NE(last_listing().find("138 fitted, outside the inputs' reach 6 before and 0 after"),
            std::string::npos)
      << last_listing();
  EXPECT_EQ(row.at("CC").value, 138);
  const auto& shown = f.ui.dialog_values;
  EXPECT_FALSE(std::get<std::string>(shown[*srquant_dialog().find("AIC")]).empty());
  EXPECT_EQ(columns(f), [] {
    SessionFixture fresh = make();
    fill(fresh);
    return columns(fresh);
  }());
}

// Input the mode cannot use: the message titled for the mode, no results, and every
// data set as it was.
TEST_F(SRQuantMode, RefusesWhatItCannotFitAndLeavesTheDataSetsAlone) {
  struct Case {
    std::vector<std::string> commands;
    std::string says;
  };
  const std::vector<std::string> hold_all = {
      "RESPONSE_PARAMETER Delay 1 30 0 60 HOLD",   "RESPONSE_PARAMETER Efficacy 1 0.5 0 1 HOLD",
      "RESPONSE_PARAMETER EC50 1 4 1 9 HOLD",      "RESPONSE_PARAMETER Hill 1 2 1 3 HOLD",
      "RESPONSE_PARAMETER Basal 0.02 0 1 HOLD",    "RESPONSE_PARAMETER Half-Life 60 10 120 HOLD",
      "RESPONSE_PARAMETER Initial 20 0 100 HOLD"};
  const Case cases[] = {
      {{"SET Output Data Set = 7"}, "The output data set 7 does not exist: choose 1 to 5."},
      {{"SET Number of Inputs = 2", "SET Input 2 Data Set = 6"},
       "The data set 6 of input 2 does not exist: choose 1 to 5."},
      {{"SET Input 1 Data Set = 1"}, "Input 1 is the output's own data set (1)"},
      {{"SET Input 1 Data Set = 3"}, "The inputs do not reach any of the output's times"},
      {{"SET Input 1 Data Set = 5"}, "The times of data set 5 (back.dat) do not increase at point 7"},
      // The kernel's refusals, in its words.
      {{"SET Output Data Set = 4"}, "3 output points for 7 fitted parameters"},
      {hold_all, "every parameter is held"},
      {{"SET Criterion = Least Absolute"}, "Levenberg-Marquardt minimises a sum of squares"},
      {{"SET Optimiser = Particle Swarm", "SET Swarm Size = 0"}, "a swarm of 0 particles"},
  };
  for (const Case& c : cases) {
    SessionFixture run = make();
    fill(run);
    const auto before = columns(run);
    std::vector<std::string> commands{"MODE SRQuant"};
    commands.insert(commands.end(), c.commands.begin(), c.commands.end());
    commands.push_back("DOSE_RESPONSE_CALCULATE");
    run.run(commands);
    const auto shown = run.ui.shown();
    ASSERT_FALSE(shown.empty()) << c.commands.back();
    const std::string title = "Error Reported by SRQuant: ";
    EXPECT_TRUE(shown.back().starts_with(title)) << shown.back();
    EXPECT_GT(shown.back().size(), title.size() + 10) << shown.back();
    EXPECT_NE(shown.back().find(c.says), std::string::npos) << shown.back();
    EXPECT_TRUE(run.session->failed());
    EXPECT_EQ(columns(run), before) << c.commands.back();
    EXPECT_FALSE(run.session->store().at(0).summary.contains("BY")) << c.commands.back();
    const auto log = run.log();
    EXPECT_TRUE(std::any_of(log.begin(), log.end(),
                            [&](const std::string& l) { return l == shown.back(); }))
        << shown.back();
  }
}

// A refused setting changes nothing; an accepted one is marked in the listing until
// DEFAULTS forgets it. The shorter prefix RESPONSE_ serves as well.
TEST_F(SRQuantMode, ParameterCommandsSetRefuseAndReset) {
  f.run({"MODE SRQuant", "SET Optimiser = Nelder-Mead",
         "RESPONSE_PARAMETER \"Delay 1\" 20 60 0 FIT",
         "RESPONSE_PARAMETER \"Delay 9\" 20 0 60 FIT",
         "Response_Parameter \"hill 1\" 2 1 3 hold",
         "RESPONSE_CALCULATE", "RESPONSE_VIEW", "RESPONSE_DEFAULTS", "DOSE_RESPONSE_CALCULATE",
         "DOSE_RESPONSE_VIEW"});
  const auto shown = f.ui.shown();
  ASSERT_GE(shown.size(), 2u);
  EXPECT_EQ(shown[0],
            "Error Reported by SRQuant: Delay 1: the lower bound 60 lies above the upper bound 0.");
  EXPECT_TRUE(shown[1].starts_with("Error Reported by SRQuant: There is no parameter \"Delay 9\""))
      << shown[1];
  ASSERT_EQ(f.ui.texts.size(), 2u);
  const std::string& first = f.ui.texts[0];
  EXPECT_NE(first.find(" Hill 1     *     2.0000         1.0000         3.0000      HOLD"),
            std::string::npos)
      << first;
  // The refused delay left the default: T / 16 = 1430 / 16, bounds 0 to 1430 / 4.
  EXPECT_NE(first.find(" Delay 1          89.375         0.0000         357.50"), std::string::npos)
      << first;
  EXPECT_EQ(f.ui.texts[1].find('*'), std::string::npos) << f.ui.texts[1];
  const auto history = f.history();
  EXPECT_NE(std::find(history.begin(), history.end(), "Response_Parameter \"hill 1\" 2 1 3 hold"),
            history.end());
}

}  // namespace
}  // namespace tidemark::feedback
