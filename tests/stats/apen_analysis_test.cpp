#include "stats/apen_analysis.h"

#include <gtest/gtest.h>

#include "core/missing.h"

namespace tidemark::stats {
namespace {

WorkingSeries constant_series(int n) {
  return {std::vector<float>(static_cast<std::size_t>(n), 3.0f),
          std::vector<float>(static_cast<std::size_t>(n), 0.0f),
          std::vector<std::uint8_t>(static_cast<std::size_t>(n), 1)};
}

// A constant series without noise: every ApEn, noise-added and shuffled, is 0. The data
// is at or above every shuffled value (P = 1); Ratio and Z divide by 0 and are missing.
TEST(ApEnAnalysis, AConstantSeriesGivesZeroApEnPOneAndMissingQuotients) {
  const ApEnResult r = analyse_apen(constant_series(20), {.cycles = 5, .threads = 2});
  ASSERT_TRUE(r.ok()) << r.message;
  EXPECT_TRUE(r.z_scores);
  for (const ApEnSummary& s : r.m) {
    EXPECT_EQ(s.apen, 0.0f);
    EXPECT_EQ(s.noise_mean, 0.0f);
    EXPECT_EQ(s.shuffled_sd, 0.0f);
    EXPECT_EQ(s.p, 1.0f);
    EXPECT_EQ(s.ratio, core::kMissingF);
    EXPECT_EQ(s.ratio_sd, core::kMissingF);
    EXPECT_EQ(s.z, core::kMissingF);
  }
}

// An alternating series 1 2 1 2 ... with r = 0.5 in data units repeats exactly: its
// ApEn(1) is near 0, while a shuffle breaks the alternation. Every shuffled value is
// above it, so P = 0; Z is negative; the noise (s = 0) changes nothing.
TEST(ApEnAnalysis, ARegularSeriesIsBelowEveryShuffleSoPIsZero) {
  WorkingSeries s = constant_series(60);
  for (std::size_t i = 0; i < s.size(); i += 2) s.x[i] = 1.0f;
  const ApEnResult r = analyse_apen(s, {.r_fraction = false, .r = 0.5, .cycles = 30, .threads = 2});
  ASSERT_TRUE(r.ok()) << r.message;
  EXPECT_EQ(r.m[0].p, 0.0f);
  EXPECT_LT(r.m[0].z, 0.0f);
  EXPECT_EQ(r.m[0].noise_mean, r.m[0].apen);
  EXPECT_EQ(r.m[0].noise_sd, 0.0f);
}

TEST(ApEnAnalysis, DifferencingShortensTheSeriesByOnePoint) {
  const ApEnResult r = analyse_apen(constant_series(10), {.difference = true, .cycles = 2});
  ASSERT_TRUE(r.ok());
  EXPECT_TRUE(r.differenced);
  EXPECT_EQ(r.n, 9);
}

TEST(ApEnAnalysis, RefusesWhatCannotBeComputed) {
  WorkingSeries gappy = constant_series(6);
  gappy.usable = {1, 1, 0, 1, 1, 0};
  struct Case {
    WorkingSeries series;
    ApEnOptions options;
    const char* message;
  };
  const Case cases[] = {
      {constant_series(10),
       {.cycles = 1},
       "The number of Monte-Carlo cycles must be between 2 and 1000000."},
      {constant_series(10), {.r = -0.1, .cycles = 2}, "R must be a number not below zero."},
      {gappy, {.cycles = 2}, "ApEn needs at least three consecutive usable points."},
      // Differencing a series of three leaves two points.
      {constant_series(3),
       {.difference = true, .cycles = 2},
       "ApEn needs at least three consecutive usable points."},
  };
  for (const Case& c : cases) {
    const ApEnResult r = analyse_apen(c.series, c.options);
    EXPECT_FALSE(r.ok());
    EXPECT_EQ(r.message, c.message);
  }
}

}  // namespace
}  // namespace tidemark::stats
