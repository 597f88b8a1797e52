// AutoInit and the AutoDecon search on simulated series with known truth, and the floor
// of the detection figures on a small grid (docs/deconvolution.md has the full grid).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/random.h"
#include "pulse/auto_decon.h"
#include "pulse/auto_init.h"
#include "pulse/decon_quality.h"
#include "pulse/event_match.h"
#include "pulse/simulate.h"

namespace tidemark::pulse {
namespace {

struct Noisy {
  SimulatedSeries series;
  std::vector<double> c, sd;
  DeconSeries view() const { return {series.time, c, sd}; }
  std::vector<double> true_times() const {
    std::vector<double> t;
    for (int e = 0; e < series.layout.events; ++e) t.push_back(series.parameters[series.layout.position_index(e)]);
    return t;
  }
};

// Half-life 60, SD 6, six events, 24 h at 10 min, 5 % CV.
Noisy six_events(std::uint64_t seed) {
  SimulationOptions o;
  o.fixed = {2 * 0.693147 / 60, 1.0, 6.0, 60.0};
  o.events = {{100, -0.7}, {300, -0.6}, {480, -0.8}, {700, -0.65}, {950, -0.7}, {1180, -0.75}};
  o.samples = 144;
  o.interval = 10;
  o.noise_cv = 0.05;
  core::Random random(seed);
  Noisy n;
  n.series = simulate_series(o, random);
  n.c.assign(n.series.concentration.begin(), n.series.concentration.end());
  n.sd.assign(n.series.sem.begin(), n.series.sem.end());
  return n;
}

TEST(AutoInit, EstimatesNearTheTruthAndFindsTheEvents) {
  const Noisy n = six_events(2);
  const AutoInitResult init = auto_init(n.series.time, n.c, n.sd);
  ASSERT_TRUE(init.ok()) << init.message;
  EXPECT_EQ(init.interval, 10.0);
  EXPECT_GT(init.half_life, 30.0);
  EXPECT_LT(init.half_life, 120.0);
  EXPECT_GE(init.sd, 0.5 * 10);
  EXPECT_LE(init.sd, 3.5 * 10);
  const EventMatch m = match_events(n.true_times(), [&] {
    std::vector<double> t;
    for (const SimulatedEvent& e : init.events) t.push_back(e.position);
    return t;
  }(), 20);
  EXPECT_EQ(m.matched, 6);
}

TEST(AutoInit, RefusesWhatItCannotUse) {
  const Noisy n = six_events(2);
  struct Case {
    const char* name;
    std::vector<double> c, sd;
    int index;
  };
  std::vector<double> zero_sd = n.sd;
  zero_sd[3] = 0;
  std::vector<double> nothing(n.c.size(), 0.0);
  for (const Case& c : {Case{"SD of zero", n.c, zero_sd, 0}, Case{"no positive value", nothing, n.sd, 0},
                        Case{"factor index", n.c, n.sd, 5}}) {
    const AutoInitResult r = auto_init(n.series.time, c.c, c.sd, {c.index});
    EXPECT_EQ(r.status, AutoInitStatus::kInvalidInput) << c.name;
    EXPECT_FALSE(r.message.empty()) << c.name;
  }
  const std::vector<float> few(n.series.time.begin(), n.series.time.begin() + 5);
  EXPECT_EQ(auto_init(few, std::span(n.c).first(5), std::span(n.sd).first(5)).status,
            AutoInitStatus::kInvalidInput);
}

TEST(AutoInit, AFlatSeriesHasNoEvents) {
  std::vector<float> t;
  std::vector<double> c, sd;
  for (int i = 0; i < 60; ++i) {
    t.push_back(float(10 * i));
    c.push_back(2.0);
    sd.push_back(0.1);
  }
  const AutoInitResult r = auto_init(t, c, sd);
  EXPECT_EQ(r.status, AutoInitStatus::kNoEvents);
  EXPECT_EQ(r.message, "AutoInit did not find any secretion events!");
}

TEST(AutoDecon, FindsEveryEventOfASeriesAndTheHalfLife) {
  for (const std::uint64_t seed : {2u, 5u}) {
    const Noisy n = six_events(seed);
    const AutoInitResult init = auto_init(n.series.time, n.c, n.sd);
    ASSERT_NE(init.status, AutoInitStatus::kFailed) << init.message;
    const AutoDeconResult r = auto_decon(n.view(), auto_init_start(init));
    ASSERT_TRUE(r.ok()) << r.message;
    std::vector<double> found;
    const ModelVector& v = r.fit.model;
    for (int e = 0; e < v.layout.events; ++e) found.push_back(v.values[v.layout.position_index(e)]);
    const EventMatch m = match_events(n.true_times(), found, 15);
    EXPECT_EQ(m.matched, 6) << "seed " << seed;
    // The default critical P lets a series keep a false event with a chance of at most 0.2.
    EXPECT_LE(m.found, 7) << "seed " << seed;
    EXPECT_NEAR(v.values[kHalfLife1], 60.0, 6.0) << "seed " << seed;
    ASSERT_EQ(r.p_values.size(), found.size());
    for (const double p : r.p_values) EXPECT_LE(p, event_critical_p(AutoDeconOptions{}.critical_p, 6));
    if (m.found == 6) {
      EXPECT_NEAR(v.values[kSecretionSd], 6.0, 1.5) << "seed " << seed;
    }
  }
}

TEST(AutoDecon, StartingFromNoEventsInsertsThem) {
  const Noisy n = six_events(4);
  const AutoDeconResult r = auto_decon(n.view(), auto_init_start(plain_start(n.series.time, n.c)));
  ASSERT_TRUE(r.ok()) << r.message;
  EXPECT_GE(r.insertions, 6);
  EXPECT_EQ(r.fit.model.layout.events, 6);
}

// The progress callback sees steps that only go forward out of max_rounds + 2, leaves
// the answer as it is, and a false answer stops the search without results.
TEST(AutoDecon, ReportsProgressAndStopsWhenCancelled) {
  const Noisy n = six_events(2);
  const ModelVector start = auto_init_start(auto_init(n.series.time, n.c, n.sd));
  const AutoDeconResult plain = auto_decon(n.view(), start);
  ASSERT_TRUE(plain.ok()) << plain.message;

  AutoDeconOptions watched;
  std::vector<long> done;
  watched.progress = [&](long d, long count) {
    EXPECT_EQ(count, watched.max_rounds + 2);
    done.push_back(d);
    return true;
  };
  const AutoDeconResult seen = auto_decon(n.view(), start, watched);
  ASSERT_TRUE(seen.ok()) << seen.message;
  EXPECT_EQ(seen.fit.model.values, plain.fit.model.values);
  ASSERT_GE(done.size(), 3u);
  EXPECT_TRUE(std::is_sorted(done.begin(), done.end()));
  EXPECT_EQ(done.front(), 0);

  for (const std::size_t answer_false_at : {std::size_t{0}, done.size() - 1}) {
    AutoDeconOptions stopped;
    std::size_t calls = 0;
    stopped.progress = [&](long, long) { return calls++ < answer_false_at; };
    const AutoDeconResult r = auto_decon(n.view(), start, stopped);
    EXPECT_EQ(r.status, AutoDeconStatus::kCancelled) << answer_false_at;
    EXPECT_EQ(calls, answer_false_at + 1) << "no call after the cancel";
  }
}

// Floors a little under the figures measured on small cells (8 series each, seed 1, the
// default critical P, by decon_grid's measure; docs/deconvolution.md has the full grid):
// - 10 min, 5 % CV: sensitivity 99.3 %, false positives 1.4 %, median half-life error
//   4.2 %, Cluster8 59.9 %. Before the event test freed the neighbours' positions and the
//   critical P was shared out over the events, 30 series of this cell gave 8.8 % false
//   positives.
// - 20 min, 10 % CV: sensitivity 73.7 %, false positives 1.0 %, half-life error 38 %
//   (three or four samples a burst pin the half-life down less well). At a critical P of
//   0.05, before the triage kept the events that passed its first test, removals took
//   real events away one after another here (46.6 %, half-life error 119 %).
// A regression in AutoInit, the fit or the triage shows here.
TEST(DeconQuality, DetectionFloor) {
  struct Floor {
    QualityCell cell;
    double sensitivity, false_positives, half_life_error;
  };
  for (const Floor& f : {Floor{{10, 0.05, 8}, 0.97, 0.03, 0.08},
                         Floor{{20, 0.10, 8}, 0.70, 0.04, 0.5}}) {
    core::Random random(1);
    const CellQuality q = measure_cell(f.cell, random);
    EXPECT_GE(q.auto_decon.sensitivity(), f.sensitivity) << f.cell.interval;
    EXPECT_LE(q.auto_decon.false_positive_share(), f.false_positives) << f.cell.interval;
    EXPECT_LE(q.auto_decon.half_life_error, f.half_life_error) << f.cell.interval;
    EXPECT_GT(q.auto_decon.sensitivity(), q.cluster8.sensitivity()) << f.cell.interval;
    EXPECT_EQ(q.failed, 0) << f.cell.interval;
  }
}

}  // namespace
}  // namespace tidemark::pulse
