// Simulated series: the model sampled on a regular grid, given and drawn events, and
// replicate noise.
#include "pulse/simulate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tidemark::pulse {
namespace {

// One half-life of 20, basal secretion 0.5, C0 4, secretion SD 3.
SimulationOptions one_half_life(int samples) {
  SimulationOptions o;
  o.fixed = {0.5, 4, 3, 20};
  o.samples = samples;
  o.interval = 10;
  return o;
}

TEST(Simulate, WithoutEventsOrNoiseTheSeriesIsTheBasalLevelPlusTheDecayingStart) {
  core::Random random(1);
  const SimulatedSeries s = simulate_series(one_half_life(5), random);
  ASSERT_TRUE(s.ok()) << s.message;
  // python3: 0.5 * 20 / ln 2 + 4 * 2^(-t / 20) at t = 0, 10, ..., 40.
  const double expected[] = {18.426950408889635, 17.255377533635826, 16.426950408889635,
                             15.84116397126273, 15.426950408889635};
  for (int i = 0; i < 5; ++i) {
    EXPECT_FLOAT_EQ(s.time[i], 10.0f * static_cast<float>(i));
    EXPECT_NEAR(s.concentration[i], expected[i], 2e-7 * expected[i]);
    EXPECT_EQ(s.concentration[i], s.model[i]);
    EXPECT_EQ(s.sem[i], 0.0f);
  }
  EXPECT_EQ(s.layout.events, 0);
}

TEST(Simulate, GivenEventsFollowTheFixedParametersInOrder) {
  core::Random random(1);
  SimulationOptions o = one_half_life(20);
  o.events = {{50, 1.5}, {120, 0.25}};
  const SimulatedSeries s = simulate_series(o, random);
  ASSERT_TRUE(s.ok()) << s.message;
  EXPECT_EQ(s.parameters, (std::vector<double>{0.5, 4, 3, 20, 50, 1.5, 120, 0.25}));
  // An event of peak rate 10^1.5 ~ 31.6 with SD 3 adds its area 31.6 * 3 * sqrt(2 pi)
  // ~ 238 (less what has been eliminated) to the basal 14.4 near its position.
  EXPECT_GT(s.model[6] - s.model[4], 100.0f);
}

TEST(Simulate, DrawnEventsKeepTheirIntervalsAndSpreadTheirHeights) {
  core::Random random(7);
  SimulationOptions o = one_half_life(901);  // times 0..9000
  o.draw = true;
  o.random_events = {100, 1.0, 0.2};
  const SimulatedSeries s = simulate_series(o, random);
  ASSERT_TRUE(s.ok()) << s.message;
  // Intervals uniform on [50, 150] have mean 100: about 90 events fit in 9000.
  const int n = s.layout.events;
  EXPECT_GE(n, 80);
  EXPECT_LE(n, 96);
  double previous = 0, sum = 0, squares = 0;
  for (int e = 0; e < n; ++e) {
    const double p = s.parameters[s.layout.position_index(e)];
    EXPECT_GE(p - previous, 50.0);
    EXPECT_LT(p - previous, 150.0);
    EXPECT_LE(p, 9000.0);
    previous = p;
    const double h = s.parameters[s.layout.log_height_index(e)];
    sum += h;
    squares += h * h;
  }
  const double mean = sum / n;
  const double sd = std::sqrt((squares - n * mean * mean) / (n - 1));
  // Within 4 standard errors of the mean (0.2 / sqrt(n)); the SD within 25 %.
  EXPECT_NEAR(mean, 1.0, 4 * 0.2 / std::sqrt(n));
  EXPECT_NEAR(sd, 0.2, 0.05);
}

TEST(Simulate, NoiseIsTheAssaySdOverTheRootOfTheReplicates) {
  struct Case {
    double noise_sd, noise_cv;
    int replicates;
  };
  for (const Case c : {Case{0.2, 0, 4}, Case{0, 0.1, 1}, Case{0.3, 0.05, 9}}) {
    core::Random random(11);
    SimulationOptions o = one_half_life(10000);
    o.noise_sd = c.noise_sd;
    o.noise_cv = c.noise_cv;
    o.replicates = c.replicates;
    const SimulatedSeries s = simulate_series(o, random);
    ASSERT_TRUE(s.ok()) << s.message;
    double sum = 0, squares = 0;
    for (std::size_t i = 0; i < s.time.size(); ++i) {
      const double sem = (c.noise_sd + c.noise_cv * s.model[i]) / std::sqrt(c.replicates);
      ASSERT_NEAR(s.sem[i], sem, 1e-6 * sem);
      const double z = (s.concentration[i] - s.model[i]) / sem;
      sum += z;
      squares += z * z;
    }
    // Standardised residuals of 10,000 samples: mean within 4 / 100 of 0, SD within 3 %
    // of 1.
    EXPECT_NEAR(sum / 10000, 0.0, 0.04);
    EXPECT_NEAR(std::sqrt(squares / 10000), 1.0, 0.03);
  }
}

TEST(Simulate, TheSameSeedGivesTheSameSeries) {
  SimulationOptions o = one_half_life(50);
  o.noise_cv = 0.05;
  o.draw = true;
  o.random_events = {60, 1, 0.3};
  core::Random a(3), b(3), c(4);
  const SimulatedSeries first = simulate_series(o, a);
  EXPECT_EQ(first.concentration, simulate_series(o, b).concentration);
  EXPECT_NE(first.concentration, simulate_series(o, c).concentration);
}

TEST(Simulate, RefusesOptionsItCannotSimulate) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  auto with = [](auto change) {
    SimulationOptions o = one_half_life(10);
    change(o);
    return o;
  };
  const SimulationOptions cases[] = {
      with([](SimulationOptions& o) { o.half_lives = 4; }),
      with([](SimulationOptions& o) { o.half_lives = 2; }),  // fixed part too short
      with([](SimulationOptions& o) { o.samples = 0; }),
      with([](SimulationOptions& o) { o.interval = 0; }),
      with([&](SimulationOptions& o) { o.noise_cv = nan; }),
      with([](SimulationOptions& o) { o.noise_sd = -1; }),
      with([](SimulationOptions& o) { o.replicates = 0; }),
      with([](SimulationOptions& o) {
        o.events.assign(97, {1, 1});
      }),
      with([](SimulationOptions& o) {
        o.draw = true;
        o.random_events.mean_interval = 0;
      }),
      with([](SimulationOptions& o) {  // about 900 events in 9000 minutes
        o.samples = 901;
        o.draw = true;
        o.random_events.mean_interval = 10;
      }),
      with([](SimulationOptions& o) { o.fixed[3] = 0; }),  // the model refuses HL 0
      with([](SimulationOptions& o) {
        o.events = {{5, 40}};
      }),  // LogHeight above 35
  };
  for (const SimulationOptions& o : cases) {
    core::Random random(1);
    const SimulatedSeries s = simulate_series(o, random);
    EXPECT_FALSE(s.ok());
    EXPECT_FALSE(s.message.empty());
  }
}

}  // namespace
}  // namespace tidemark::pulse
