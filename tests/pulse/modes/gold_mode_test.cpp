// The Gold_Method mode on simulated data: its listing, graph source and messages.
#include "pulse/modes/gold_mode.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "graphics/plot_parser.h"
#include "pulse/modes/simulate_commands.h"
#include "shell/session_fixture.h"

namespace tidemark::pulse {
namespace {

using testing_support::Scratch;
using testing_support::SessionFixture;

shell::ModuleFactories gold_only() {
  return testing_support::only_mode(8, [](int) { return make_gold_mode(); });
}

class GoldMode : public testing::Test {
 protected:
  GoldMode() : f(gold_only()) { f.session->set_simulator(make_simulate_commands()); }
  // The secretion column of the listing, one value per sample (0 for "not used").
  std::vector<double> secretion_column() const {
    std::istringstream in(f.ui.texts.at(0));
    std::vector<double> s;
    bool table = false;
    for (std::string line; std::getline(in, line);) {
      if (table && line.size() >= 50) s.push_back(std::strtod(line.substr(35).c_str(), nullptr));
      table = table || line.find("SECRETION") != std::string::npos;
    }
    return s;
  }
  SessionFixture f;
};

// Two events of peak rate 10^0.5 at 200 and 10^0.8 at 600 minutes, SD 4, half-life 45,
// basal 0.1, sampled every 10 minutes for 1000 minutes with 3 % noise.
const char* const kTwoEvents = "SIMULATE SEED=5 SAMPLES=101 EVENTS=200:0.5,600:0.8 NOISE_CV=0.03";

TEST_F(GoldMode, ListsTheSecretionWithItsPeaksAtTheTrueEvents) {
  f.run({kTwoEvents, "MODE Gold_Method", "GOLD_CALCULATE", "GOLD_VIEW"});
  ASSERT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
  ASSERT_EQ(f.ui.texts.size(), 1u);
  const std::string& listing = f.ui.texts[0];
  EXPECT_NE(listing.find(" Kernel = Elimination and Secretion Shape, lags -"), std::string::npos);
  EXPECT_NE(listing.find(" Converged\n"), std::string::npos);
  const std::vector<double> s = secretion_column();
  ASSERT_EQ(s.size(), 101u);
  // The largest estimate within 100 minutes of each event lies within one sample of it
  // (samples 21 and 61, 0-based 20 and 60).
  for (const std::size_t event : {20u, 60u}) {
    std::size_t peak = event - 10;
    for (std::size_t i = event - 10; i <= event + 10; ++i) peak = s[i] > s[peak] ? i : peak;
    EXPECT_NEAR(static_cast<double>(peak), static_cast<double>(event), 1.0);
  }
  // What is secreted: in Gold's model a burst of peak rate s at a sample releases s times
  // the sampled shape's area, h * sum of exp(-(10 m / 4)^2 / 2) over m = -2..2 = 10.879
  // (python3; the continuous area 4 sqrt(2 pi) is 10.03). The truth: the two events,
  // 10^0.5 * 4 sqrt(2 pi) = 31.7 and 10^0.8 * 4 sqrt(2 pi) = 63.2; the basal 0.1 per
  // minute over 101 samples of 10 minutes, 101; and the basal steady state the series
  // starts with, 0.1 * 45 / ln 2 = 6.5, which the first samples carry. Total 202.4;
  // within 10 %.
  double released = 0;
  for (const double v : s) released += v * 10.879;
  EXPECT_NEAR(released, 202.4, 20.0);
  const graphics::PlotParseResult plot =
      graphics::parse_plot(Scratch::read(f.session->files().graph_path()));
  EXPECT_TRUE(plot.ok()) << plot.message;
}

TEST_F(GoldMode, RefusesWhatItCannotDeconvolve) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"SET Elimination Half-Life = 0"},
       "Error Reported by Gold_Method: Gold Method Kernel Error: the half-life must be positive "
       "and finite"},
      {{"SET Secretion SD = -1"},
       "Error Reported by Gold_Method: Gold Method Kernel Error: the secretion SD must be "
       "positive and finite"},
  };
  for (const auto& [settings, message] : cases) {
    SessionFixture g(gold_only());
    g.session->set_simulator(make_simulate_commands());
    std::vector<std::string> commands{kTwoEvents, "MODE Gold_Method"};
    commands.insert(commands.end(), settings.begin(), settings.end());
    commands.push_back("GOLD_CALCULATE");
    g.run(commands);
    ASSERT_FALSE(g.ui.shown().empty());
    EXPECT_EQ(g.ui.shown().back(), message);
  }
}

}  // namespace
}  // namespace tidemark::pulse
