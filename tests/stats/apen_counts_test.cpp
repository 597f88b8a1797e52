#include "stats/apen_counts.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

namespace tidemark::stats {
namespace {

using Flags = std::vector<std::uint8_t>;

// A random series of one of several shapes: few distinct values (many ties), rounded
// Gaussian values, or values of widely different magnitude; some points unusable.
struct RandomSeries {
  std::vector<float> x;
  Flags usable;
  float r = 0;
};

RandomSeries random_series(std::mt19937& gen) {
  RandomSeries s;
  const int n = std::uniform_int_distribution<int>(0, 60)(gen);
  const int shape = std::uniform_int_distribution<int>(0, 2)(gen);
  std::normal_distribution<float> normal(0.0f, 1.0f);
  std::uniform_int_distribution<int> small(0, 3);
  std::bernoulli_distribution missing(0.1);
  for (int i = 0; i < n; ++i) {
    float v = shape == 0   ? static_cast<float>(small(gen))
              : shape == 1 ? std::round(normal(gen) * 8) / 8
                           : normal(gen) * std::pow(10.0f, static_cast<float>(small(gen) * 3));
    s.x.push_back(v);
    s.usable.push_back(missing(gen) ? 0 : 1);
  }
  const float rs[] = {0.0f, 0.125f, 0.2f, 1.0f, 0.3f};
  s.r = rs[std::uniform_int_distribution<int>(0, 4)(gen)];
  return s;
}

std::array<TemplateCounts, 3> direct_all(const std::vector<float>& x, const Flags& usable,
                                         float r) {
  return {count_matches_direct(x, usable, r, 1), count_matches_direct(x, usable, r, 2),
          count_matches_direct(x, usable, r, 3)};
}

void expect_same_counts(const std::array<TemplateCounts, 3>& fast,
                        const std::array<TemplateCounts, 3>& direct) {
  for (int m = 0; m < 3; ++m) {
    ASSERT_EQ(fast[m].matches, direct[m].matches) << "m " << m + 1;
    ASSERT_EQ(fast[m].usable, direct[m].usable) << "m " << m + 1;
  }
}

// Every fast method: the scan of each partner run (with the widest vectors the processor
// has, and with 16-byte ones), the counts in rank space, and the choice between them.
class ApEnFastCounts : public testing::TestWithParam<MatchMethod> {};

TEST_P(ApEnFastCounts, EqualDirectCountsOnThousandsOfRandomSeries) {
  std::mt19937 gen(12345);
  for (int trial = 0; trial < 3000; ++trial) {
    SCOPED_TRACE(testing::Message() << "trial " << trial);
    const RandomSeries s = random_series(gen);
    expect_same_counts(count_matches_fast_all(s.x, s.usable, s.r, GetParam()),
                       direct_all(s.x, s.usable, s.r));
  }
}

TEST_P(ApEnFastCounts, EqualDirectCountsOnLongSeriesWithTiesAndGaps) {
  // Long enough for many levels of the rank-space divide and conquer.
  std::mt19937 gen(777);
  std::uniform_int_distribution<int> level(0, 40);
  std::bernoulli_distribution missing(0.02);
  for (const int n : {500, 1500}) {
    RandomSeries s;
    for (int i = 0; i < n; ++i) {
      s.x.push_back(static_cast<float>(level(gen)) * 0.05f);
      s.usable.push_back(missing(gen) ? 0 : 1);
    }
    for (const float r : {0.0f, 0.1f, 0.5f}) {
      SCOPED_TRACE(testing::Message() << "n " << n << " r " << r);
      expect_same_counts(count_matches_fast_all(s.x, s.usable, r, GetParam()),
                         direct_all(s.x, s.usable, r));
    }
  }
}

TEST_P(ApEnFastCounts, SpecialValuesCountTheSameByBothMethods) {
  const float inf = std::numeric_limits<float>::infinity();
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float big = std::numeric_limits<float>::max();
  const std::vector<std::vector<float>> series = {
      {inf, 1, inf, 1, -inf, 2},  // inf − inf is NaN: no match, not even itself
      {-inf, -inf, 3, inf, inf, -inf, 0},
      {big, -big, big, -big, 0},  // differences overflow to infinity
      {-1e35f, 0, 1e-40f, -0.0f, 0},
      {1, nan, 1, 2, nan, nan, 1},  // a NaN never matches, yet its template is usable
  };
  for (const auto& x : series) {
    for (float r : {0.0f, 1.0f, inf, -1.0f, nan}) {
      SCOPED_TRACE(testing::Message() << "r " << r << " first " << x[0]);
      const Flags usable(x.size(), 1);
      expect_same_counts(count_matches_fast_all(x, usable, r, GetParam()),
                         direct_all(x, usable, r));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Methods, ApEnFastCounts,
                         testing::Values(MatchMethod::kRunScan, MatchMethod::kRunScan16Bytes,
                                         MatchMethod::kBoxes, MatchMethod::kAdaptive));

TEST(ApEnCounts, SelfMatchAndUnusableTemplates) {
  // 1 2 1 2 with point 3 unusable, r = 0: m=1 templates 1,2,2 usable -> the 2s match
  // each other; m=2 only (1,2) is usable; templates holding point 3 count 0.
  const std::vector<float> x = {1, 2, 1, 2};
  const Flags usable = {1, 1, 0, 1};
  EXPECT_EQ(count_matches_fast_all(x, usable, 0.0f)[0].matches,
            (std::vector<std::int32_t>{1, 2, 0, 2}));
  EXPECT_EQ(count_matches_fast_all(x, usable, 0.0f)[1].matches,
            (std::vector<std::int32_t>{1, 0, 0}));
  EXPECT_EQ(count_matches_fast_all(x, usable, 0.0f)[1].usable, 1);
}

}  // namespace
}  // namespace tidemark::stats
