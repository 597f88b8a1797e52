#include "stats/mc_summary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "stats/merge_sort.h"

namespace tidemark::stats {
namespace {

TEST(McSummary, MeanAndSampleSd) {
  // 2 4 4 4 5 5 7 9: mean 5, Σ(v − 5)² = 32, SD = sqrt(32 / 7).
  const std::vector<float> v = {2, 4, 4, 4, 5, 5, 7, 9};
  const McSummary s = summarize(v);
  EXPECT_DOUBLE_EQ(s.mean, 5.0);
  EXPECT_DOUBLE_EQ(s.sd, std::sqrt(32.0 / 7.0));
}

TEST(McSummary, PCountsTheShuffledValuesNotAboveTheObservedOne) {
  const std::vector<float> sorted = {0.1f, 0.2f, 0.2f, 0.3f};
  struct Case {
    double observed;
    double p;
  };
  // Below all: 0; equal to the largest or above: 1; equal to a tie: both tied values.
  for (const Case c :
       {Case{0.05, 0.0}, Case{0.3f, 1.0}, Case{7.0, 1.0}, Case{0.2f, 0.75}, Case{0.15, 0.25}}) {
    EXPECT_DOUBLE_EQ(p_at_or_below(sorted, c.observed), c.p) << c.observed;
  }
}

TEST(MergeSort, SortsLikeTheStandardLibraryWithTiesAndAnyLength) {
  std::mt19937 gen(9);
  for (int n = 0; n < 200; n += 7) {
    std::vector<float> v(static_cast<std::size_t>(n));
    for (float& x : v) x = static_cast<float>(std::uniform_int_distribution<int>(-20, 20)(gen));
    std::vector<float> expected = v;
    std::sort(expected.begin(), expected.end());
    merge_sort(v);
    EXPECT_EQ(v, expected) << n;
  }
}

}  // namespace
}  // namespace tidemark::stats
