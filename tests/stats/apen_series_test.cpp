#include "stats/apen_series.h"

#include <gtest/gtest.h>

namespace tidemark::stats {
namespace {

TEST(ApEnSeries, DifferencingCombinesNeighboursAndTheirErrorsAndFlags) {
  WorkingSeries s{{1, 4, 9, 16}, {3, 4, 0, 2}, {1, 1, 0, 1}};
  difference(s);
  // 4-1, 9-4, 16-9; sqrt(3²+4²) = 5, sqrt(4²+0²) = 4, sqrt(0²+2²) = 2; a differenced
  // point beside the missing third point is missing.
  EXPECT_EQ(s.x, (std::vector<float>{3, 5, 7}));
  EXPECT_EQ(s.s, (std::vector<float>{5, 4, 2}));
  EXPECT_EQ(s.usable, (std::vector<std::uint8_t>{1, 0, 0}));
}

TEST(ApEnSeries, DifferencingOnePointLeavesNothing) {
  WorkingSeries s{{1}, {1}, {1}};
  difference(s);
  EXPECT_EQ(s.size(), 0u);
}

TEST(ApEnSeries, ZScoresUseOnlyUsablePointsButConvertEveryValue) {
  WorkingSeries s{{1, 2, 3, 100}, {0.5f, 0.5f, 0.5f, 0.5f}, {1, 1, 1, 0}};
  ASSERT_TRUE(to_z_scores(s));
  // mean of 1, 2, 3 is 2; SD = sqrt((1 + 0 + 1) / 2) = 1; the unusable 100 -> 98.
  EXPECT_EQ(s.x, (std::vector<float>{-1, 0, 1, 98}));
  EXPECT_EQ(s.s, (std::vector<float>{0.5f, 0.5f, 0.5f, 0.5f}));
}

TEST(ApEnSeries, AConstantSeriesIsCentredNotDividedByZero) {
  WorkingSeries s{{7, 7, 7}, {1, 1, 1}, {1, 1, 1}};
  EXPECT_FALSE(to_z_scores(s));
  EXPECT_EQ(s.x, (std::vector<float>{0, 0, 0}));
}

}  // namespace
}  // namespace tidemark::stats
