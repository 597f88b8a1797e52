// Detection quality of Cluster8's default settings on simulated series with known
// pulse times: Gaussian secretion bursts (SD 5 min) every 60-120 min on a basal
// secretion, one-exponential elimination (half-life 45 min), sampled every 10 min for
// 24 h in duplicate, with Gaussian measurement noise of a fixed CV (the SD column holds
// that CV times the true value). The generator is independent of the detector.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "core/random.h"
#include "pulse/cluster8.h"

namespace tidemark::pulse {
namespace {

constexpr int kSeries = 1000;
constexpr float kSampling = 10.0f;
constexpr int kSamples = 144;
constexpr double kStep = 0.5;  // minutes per step of the simulation

struct Simulated {
  std::vector<Cluster8Sample> samples;
  std::vector<double> pulse_times;
};

Simulated simulate(core::Random& random, double cv) {
  Simulated s;
  for (double t = 20.0 + 60.0 * random.uniform(); t < 1440.0; t += 60.0 + 60.0 * random.uniform())
    s.pulse_times.push_back(t);
  std::vector<double> mass;
  for (std::size_t e = 0; e < s.pulse_times.size(); ++e)
    mass.push_back(60.0 + 120.0 * random.uniform());
  const double k = std::log(2.0) / 45.0;
  const double basal = 2.0 * k;  // steady state 2.0
  double c = 2.0;
  int next = 1;
  for (double t = 0.0; next <= kSamples; t += kStep) {
    double secretion = basal;
    for (std::size_t e = 0; e < mass.size(); ++e) {
      const double z = (t - s.pulse_times[e]) / 5.0;
      secretion += mass[e] * std::exp(-0.5 * z * z) / (5.0 * std::sqrt(2.0 * M_PI));
    }
    c = c * std::exp(-k * kStep) + secretion * kStep;
    if (std::fabs(t + kStep - static_cast<double>(next) * kSampling) < 1e-9) {
      const double measured = c * (1.0 + cv * random.gaussian12() / std::sqrt(2.0));
      s.samples.push_back({static_cast<float>(measured), static_cast<float>(cv * c),
                           static_cast<float>(next) * kSampling, 2.0f});
      ++next;
    }
  }
  return s;
}

struct Rates {
  double true_positive = 0;   // share of true pulses with a peak at -10..+30 min
  double false_positive = 0;  // share of peaks with no true pulse 30 min before .. 10 after
};

Rates detection_rates(double cv, std::uint64_t seed) {
  core::Random random(seed);
  int truths = 0, found = 0, peaks = 0, false_peaks = 0;
  for (int n = 0; n < kSeries; ++n) {
    const Simulated s = simulate(random, cv);
    const Cluster8Result r = run_cluster8(s.samples, {});
    EXPECT_TRUE(r.ok()) << r.message;
    std::vector<double> times;
    for (const Cluster8Peak& p : r.peaks) times.push_back(r.grid.times[p.position]);
    for (double truth : s.pulse_times) {
      if (truth > 1440.0 - 60.0) continue;  // too close to the end to be closed
      ++truths;
      for (double t : times) {
        if (t >= truth - 10.0 && t <= truth + 30.0) {
          ++found;
          break;
        }
      }
    }
    for (double t : times) {
      ++peaks;
      bool matched = false;
      for (double truth : s.pulse_times) matched |= t >= truth - 10.0 && t <= truth + 30.0;
      false_peaks += !matched;
    }
  }
  return {static_cast<double>(found) / truths, static_cast<double>(false_peaks) / peaks};
}

TEST(Cluster8Quality, DefaultSettingsFindMostSimulatedPulsesWithFewFalseOnes) {
  struct Case {
    double cv;
    double min_true, max_false;
  };
  // Measured at seed 2024: CV 5% true 0.9743, false 0.0001; CV 15% true 0.9652, false
  // 0.0044. The floors sit a little below, so that a regression shows.
  for (const Case c : {Case{0.05, 0.95, 0.01}, Case{0.15, 0.93, 0.02}}) {
    const Rates r = detection_rates(c.cv, 2024);
    std::printf("CV %.2f: true positive %.4f, false positive %.4f\n", c.cv, r.true_positive,
                r.false_positive);
    EXPECT_GE(r.true_positive, c.min_true) << c.cv;
    EXPECT_LE(r.false_positive, c.max_false) << c.cv;
  }
}

}  // namespace
}  // namespace tidemark::pulse
