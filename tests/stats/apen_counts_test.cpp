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

TEST(ApEnCounts, FastCountsEqualDirectCountsOnThousandsOfRandomSeries) {
  std::mt19937 gen(12345);
  for (int trial = 0; trial < 3000; ++trial) {
    const RandomSeries s = random_series(gen);
    for (int m = 1; m <= 3; ++m) {
      const TemplateCounts direct = count_matches_direct(s.x, s.usable, s.r, m);
      const TemplateCounts fast = count_matches_fast(s.x, s.usable, s.r, m);
      ASSERT_EQ(fast.matches, direct.matches) << "trial " << trial << " m " << m;
      ASSERT_EQ(fast.usable, direct.usable) << "trial " << trial << " m " << m;
    }
  }
}

TEST(ApEnCounts, SpecialValuesCountTheSameByBothMethods) {
  const float inf = std::numeric_limits<float>::infinity();
  const float big = std::numeric_limits<float>::max();
  const std::vector<std::vector<float>> series = {
      {inf, 1, inf, 1, -inf, 2},  // inf − inf is NaN: no match, not even itself
      {big, -big, big, -big, 0},  // differences overflow to infinity
      {-1e35f, 0, 1e-40f, -0.0f, 0},
  };
  for (const auto& x : series) {
    for (float r : {0.0f, 1.0f, inf, -1.0f}) {
      for (int m = 1; m <= 3; ++m) {
        const Flags usable(x.size(), 1);
        EXPECT_EQ(count_matches_fast(x, usable, r, m).matches,
                  count_matches_direct(x, usable, r, m).matches)
            << "r " << r << " m " << m;
      }
    }
  }
}

TEST(ApEnCounts, SelfMatchAndUnusableTemplates) {
  // 1 2 1 2 with point 3 unusable, r = 0: m=1 templates 1,2,2 usable -> the 2s match
  // each other; m=2 only (1,2) is usable; templates holding point 3 count 0.
  const std::vector<float> x = {1, 2, 1, 2};
  const Flags usable = {1, 1, 0, 1};
  EXPECT_EQ(count_matches_fast(x, usable, 0.0f, 1).matches,
            (std::vector<std::int32_t>{1, 2, 0, 2}));
  EXPECT_EQ(count_matches_fast(x, usable, 0.0f, 2).matches, (std::vector<std::int32_t>{1, 0, 0}));
  EXPECT_EQ(count_matches_fast(x, usable, 0.0f, 2).usable, 1);
}

}  // namespace
}  // namespace tidemark::stats
