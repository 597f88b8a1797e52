#include "pulse/cluster8.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "pulse/cluster8_outliers.h"
#include "pulse/cluster8_steps.h"
#include "pulse/cluster8_tables.h"

namespace tidemark::pulse {
namespace {

constexpr float kTol = 1e-4f;

// Samples at times t = 10, 20, ... with the given means, SD 1 and two replicates.
std::vector<Cluster8Sample> every_ten(const std::vector<float>& means, float first = 10.0f) {
  std::vector<Cluster8Sample> s;
  for (std::size_t k = 0; k < means.size(); ++k)
    s.push_back({means[k], 1.0f, first + 10.0f * static_cast<float>(k), 2.0f});
  return s;
}

// A grid built from `means` that is known to build.
Cluster8Grid grid_of(const std::vector<float>& means) {
  Cluster8Grid g;
  EXPECT_EQ(build_grid(every_ten(means), g).stop, Cluster8Stop::kDone);
  return g;
}

// 1-based flags with the listed points set.
std::vector<char> flags(int n, const std::vector<int>& set) {
  std::vector<char> f(static_cast<std::size_t>(n) + 1, 0);
  for (int i : set) f[i] = 1;
  return f;
}

TEST(Cluster8Grid, ReplicateCountsBelowOneAndAHalfCarryOneDegreeOfFreedom) {
  // NDF = truncate(r - 1) for r >= 1.5, else 1 (by hand).
  const std::vector<std::pair<float, int>> cases{{0.0f, 1}, {1.0f, 1}, {1.49f, 1},
                                                 {1.5f, 0}, {2.0f, 1}, {3.7f, 2}};
  for (const auto& [reps, ndf] : cases) EXPECT_EQ(sample_ndf(reps), ndf) << reps;
}

TEST(Cluster8Grid, LeadingGridPointsCopyTheFirstSampleWithTenfoldSd) {
  Cluster8Grid g;
  const std::vector<Cluster8Sample> s{{4, 0.5f, 30, 3}, {5, 1, 40, 3}, {6, 1, 50, 3}};
  ASSERT_EQ(build_grid(s, g).stop, Cluster8Stop::kDone);
  ASSERT_EQ(g.n, 5);
  for (int j : {1, 2}) {
    EXPECT_FLOAT_EQ(g.mean[j], 4.0f);
    EXPECT_FLOAT_EQ(g.stdev[j], 5.0f);
    EXPECT_FLOAT_EQ(g.times[j], 10.0f * static_cast<float>(j));
    EXPECT_EQ(g.ndf[j], 2);
    EXPECT_EQ(g.nreps[j], 2);  // NDF, not NDF + 1
  }
  EXPECT_EQ(g.nreps[3], 3);
  ASSERT_EQ(g.notes.size(), 4u);
  EXPECT_EQ(g.notes[0].kind, GridNote::kMissing);
  EXPECT_EQ(g.notes[1].point, 2);
  EXPECT_EQ(g.notes[2].kind, GridNote::kAdded);
  EXPECT_FLOAT_EQ(g.notes[3].time, 20.0f);
}

TEST(Cluster8Grid, OneInteriorGapIsAveragedAndTwoInARowStopTheRun) {
  Cluster8Grid g;
  const std::vector<Cluster8Sample> one{{2, 1, 10, 2}, {4, 0.5f, 20, 4}, {8, 1.5f, 40, 2}};
  ASSERT_EQ(build_grid(one, g).stop, Cluster8Stop::kDone);
  // By hand: mean (4+8)/2, time (20+40)/2, SD 5(0.5+1.5), NDF trunc((3+1)/2), nreps NDF+1.
  EXPECT_FLOAT_EQ(g.mean[3], 6.0f);
  EXPECT_FLOAT_EQ(g.times[3], 30.0f);
  EXPECT_FLOAT_EQ(g.stdev[3], 10.0f);
  EXPECT_EQ(g.ndf[3], 2);
  EXPECT_EQ(g.nreps[3], 3);

  const std::vector<Cluster8Sample> two{{2, 1, 10, 2}, {4, 1, 20, 2}, {8, 1, 50, 2}};
  const GridOutcome out = build_grid(two, g);
  EXPECT_EQ(out.stop, Cluster8Stop::kTooManyMissing);
  ASSERT_FALSE(g.notes.empty());
  EXPECT_EQ(g.notes.back().kind, GridNote::kTooManyMissing);
  EXPECT_EQ(g.notes.back().point, 3);
  EXPECT_FLOAT_EQ(g.notes.back().time, 30.0f);
}

TEST(Cluster8Grid, SeriesThatMakeNoGridAreRefused) {
  Cluster8Grid g;
  const std::vector<std::vector<Cluster8Sample>> bad{
      {},
      {{1, 1, 10, 2}},
      {{1, 1, 10, 2}, {1, 1, 10, 2}},                     // no time step
      {{1, 1, 20, 2}, {1, 1, 10, 2}},                     // decreasing
      {{1, 1, -20, 2}, {1, 1, -10, 2}},                   // before the grid
      {{1, 1, 0, 2}, {1, 1, 1e-6f, 2}, {1, 1, 1e9f, 2}},  // grid far too long
      {{1, 1, 10, 2}, {std::numeric_limits<float>::infinity(), 1, 20, 2}}};
  for (const auto& s : bad) EXPECT_EQ(build_grid(s, g).stop, Cluster8Stop::kBadTimes);
}

TEST(Cluster8Steps, PooledTDividesBySummedWeightsMinusTwo) {
  // Means 1 and 3, SD 1, two replicates: W = 2 + 2, SS = 1 + 1, variance 2 / (4 - 2) = 1,
  // t = 2 / 1 / sqrt(1/2 + 1/2) = 2 (by hand).
  const Cluster8Grid g = grid_of({1, 3});
  const ClusterStep s = cluster_step(g, 2, 1, 1);
  EXPECT_NEAR(s.t, 2.0f, kTol);
  EXPECT_FLOAT_EQ(s.mean_before, 1.0f);
  EXPECT_FLOAT_EQ(s.mean_after, 3.0f);
}

TEST(Cluster8Steps, ThresholdsAreStrict) {
  // t is exactly 2 (previous test); the after-cluster mean is 3, the before-cluster 1.
  const Cluster8Grid g = grid_of({1, 3});
  const Cluster8Grid down = grid_of({3, 1});
  struct Case {
    float t, min_peak;
    bool flagged;
  };
  for (const Case c : {Case{2.0f, 0.0f, false}, Case{1.99f, 0.0f, true}, Case{-1.99f, 0.0f, true},
                       Case{1.99f, 3.0f, false}, Case{1.99f, 2.99f, true}}) {
    EXPECT_EQ(upward_steps(g, 1, 1, c.t, c.min_peak)[2], c.flagged) << c.t << " " << c.min_peak;
    EXPECT_EQ(downward_steps(down, 1, 1, c.t, c.min_peak)[2], c.flagged)
        << c.t << " " << c.min_peak;
  }
}

TEST(Cluster8Steps, ZeroSpreadGivesInfiniteOrZeroTNeverNaN) {
  Cluster8Grid g = grid_of({1, 3, 3});
  for (int j = 1; j <= 3; ++j) g.stdev[j] = 0.0f;
  EXPECT_TRUE(std::isinf(cluster_step(g, 2, 1, 1).t));
  EXPECT_EQ(cluster_step(g, 3, 1, 1).t, 0.0f);
}

// Pulse assembly, each derived by hand from the rules (peak 2, nadir 2).
TEST(Cluster8Pulses, AssemblyFollowsStepsForwardAndBackward) {
  struct Case {
    const char* what;
    int n;
    std::vector<int> up, down, pulse;
  };
  const std::vector<Case> cases{
      {"up then two downs: the downs join the pulse", 12, {4}, {8, 9}, {4, 5, 6, 7, 8, 9}},
      {"first step downward: the series starts inside a pulse", 10, {}, {5}, {1, 2, 3, 4, 5}},
      {"nadir points before a pulse are left alone",
       14,
       {8},
       {4, 6},
       {1, 2, 3, 4, 8, 9, 10, 11, 12, 13, 14}},
      {"no steps: no pulse", 6, {}, {}, {}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(assemble_pulses(flags(c.n, c.up), flags(c.n, c.down), c.n, 2, 2), flags(c.n, c.pulse))
        << c.what;
  }
}

TEST(Cluster8Tables, PeakStatisticsIncludeTheEndPoint) {
  const Cluster8Grid g = grid_of({1, 1, 1, 5, 6, 1, 1, 1, 1, 1});
  const auto peaks = find_peaks(g, flags(10, {4, 5}), 2);
  ASSERT_EQ(peaks.size(), 1u);
  const Cluster8Peak& p = peaks[0];
  // By hand: s 4, e 6, largest 6 at 5, width 2*10, pre = post = 1, mean (5+6+1)/3 = 4.
  EXPECT_EQ(p.start, 4);
  EXPECT_EQ(p.end, 6);
  EXPECT_EQ(p.position, 5);
  EXPECT_FLOAT_EQ(p.width, 20.0f);
  EXPECT_FLOAT_EQ(p.largest, 6.0f);
  EXPECT_FLOAT_EQ(p.largest_percent, 600.0f);
  EXPECT_FLOAT_EQ(p.mean_percent, 400.0f);
  EXPECT_FLOAT_EQ(p.area, 60.0f);
  EXPECT_FLOAT_EQ(p.increase, 5.0f);
}

TEST(Cluster8Tables, RunsNotClosedInTimeAreNotListed) {
  const Cluster8Grid g = grid_of({1, 1, 1, 5, 6, 7, 1, 1, 1, 1});
  // The end must lie at or before n - nadir = 10 - 3 = 7: pulse 4..6 ends at 7, pulse
  // 5..7 at 8 (still high when the series is about to end).
  EXPECT_EQ(find_peaks(g, flags(10, {4, 5, 6}), 3).size(), 1u);
  EXPECT_TRUE(find_peaks(g, flags(10, {5, 6, 7}), 3).empty());
  // The valley from 7 on never meets another pulse.
  EXPECT_TRUE(find_valleys(g, flags(10, {4, 5, 6})).empty());
}

TEST(Cluster8Tables, ValleyNadirTiesKeepTheLatestPoint) {
  const Cluster8Grid g = grid_of({5, 6, 2, 3, 2, 7, 6});
  const auto v = find_valleys(g, flags(7, {1, 2, 6, 7}));
  ASSERT_EQ(v.size(), 1u);
  // By hand: s 3, e 6, nadir 2 last at 5, mean (2+3+2+7)/4, width 3*10.
  EXPECT_EQ(v[0].start, 3);
  EXPECT_EQ(v[0].end, 6);
  EXPECT_EQ(v[0].position, 5);
  EXPECT_FLOAT_EQ(v[0].nadir, 2.0f);
  EXPECT_FLOAT_EQ(v[0].mean, 3.5f);
  EXPECT_FLOAT_EQ(v[0].width, 30.0f);
}

TEST(Cluster8Tables, SummariesSkipTheNoneEntryAndNeedTwoValuesForAnSd) {
  struct Case {
    std::vector<float> values;
    bool present;
    float mean, sd;
  };
  // By hand: {2, 4} mean 3, SD sqrt(((2-3)^2 + (4-3)^2) / 1) = sqrt(2).
  for (const Case& c : {Case{{2, -1, 4}, true, 3, std::sqrt(2.0f)}, Case{{-1, 7}, true, 7, 0},
                        Case{{-1, -1}, false, 0, 0}}) {
    const OptionalSummary s = summarise(c.values);
    ASSERT_EQ(s.has_value(), c.present);
    if (!s) continue;
    EXPECT_NEAR(s->mean, c.mean, kTol);
    EXPECT_NEAR(s->sd, c.sd, kTol);
  }
}

TEST(Cluster8Tables, OnePeakGivesNoSummaryAndIntervalsAreInTime) {
  const std::vector<Cluster8Peak> one(1);
  EXPECT_FALSE(summarise_peaks(one, 10.0f).has_value());
  std::vector<Cluster8Peak> three(3);
  three[0].position = 4;
  three[1].position = 10;
  three[2].position = 20;
  // Intervals 6 and 10 points: mean 8 * 10, SD sqrt(8) * 10 (by hand).
  const auto s = summarise_peaks(three, 10.0f);
  ASSERT_TRUE(s && s->interval);
  EXPECT_NEAR(s->interval->mean, 80.0f, kTol);
  EXPECT_NEAR(s->interval->sd, std::sqrt(8.0f) * 10.0f, kTol);
}

TEST(Cluster8Outliers, ADropBelowAgreeingNeighboursIsProbable) {
  // E over one interval = exp(-10 * 0.6931472 / 50) = 0.870551 (python3); s^2 = 1.
  struct Case {
    std::vector<float> means;
    std::vector<int> questionable, probable;
  };
  const std::vector<Case> cases{
      // t(2,3) = 87.06 - 10 = 77.06: questionable; t(2,4) = 75.79 - 100 < 0 and the
      // neighbours' average 100 > 10: probable.
      {{100, 100, 10, 100, 100}, {3}, {3}},
      // t(2,4) = 75.79 - 9 > 4: the drop is elsewhere; t(1,3) = 65.79 > 4: no probable.
      {{100, 100, 10, 9, 8}, {3}, {}},
      // A spike at 3: t(3,4) questionable, t(3,5) > 4, t(2,4) = 7.58 - 10 <= 4 and
      // (10 + 10) / 2 < 100: point 3 is probable and replaces 4.
      {{10, 10, 100, 10, 10}, {3}, {3}},
  };
  for (const Case& c : cases) {
    const Cluster8Outliers o = find_outliers(grid_of(c.means), 50.0f, 4.0f);
    EXPECT_EQ(o.questionable, c.questionable);
    EXPECT_EQ(o.probable, c.probable);
  }
}

TEST(Cluster8Run, FailuresStopWithAReasonAndTooFewPointsAfterTheGrid) {
  Cluster8Settings s;
  s.peak_size = 3;
  s.nadir_size = 3;
  const Cluster8Result few = run_cluster8(every_ten({1, 2, 3, 4, 5}), s);
  EXPECT_EQ(few.stop, Cluster8Stop::kTooFewPoints);
  EXPECT_EQ(few.error_flag(), 1);
  EXPECT_EQ(few.grid.n, 5);
  s.peak_size = 0;
  EXPECT_EQ(run_cluster8(every_ten({1, 2, 3, 4, 5}), s).stop, Cluster8Stop::kBadSettings);
  s.peak_size = 2;
  s.half_life = 0.0f;
  EXPECT_EQ(run_cluster8(every_ten({1, 2, 3, 4, 5}), s).stop, Cluster8Stop::kBadSettings);
}

}  // namespace
}  // namespace tidemark::pulse
