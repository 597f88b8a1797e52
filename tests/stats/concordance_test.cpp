#include <gtest/gtest.h>

#include <cmath>

#include "stats/concordance_match.h"
#include "stats/concordance_monte_carlo.h"

namespace tidemark::stats {
namespace {

using Pairs = std::vector<CoincidentPair>;

struct MatchCase {
  const char* what;
  std::vector<double> a, b;
  CoincidenceRange range;
  Pairs expected;  // by hand from the first-free rule
};

TEST(ConcordanceMatch, TakesTheFirstFreeBEventInListOrder) {
  const std::vector<MatchCase> cases = {
      {"both A events near one B: the first A takes it, the second finds another",
       {10, 11},
       {10.5, 30, 11.2},
       {-1, 1},
       {{0, 0}, {1, 2}}},
      {"both A events near one B and no other B: the second stays unmatched",
       {10, 11},
       {10.5},
       {-1, 1},
       {{0, 0}}},
      {"lists are not sorted and the first free B in list order wins",
       {20, 5},
       {5.5, 20.9, 19.5},
       {-1, 1},
       {{0, 1}, {1, 0}}},
      {"both ends of the range are inclusive", {0, 10}, {-5, 15}, {-5, 5}, {{0, 0}, {1, 1}}},
      {"lo above hi never matches", {0, 1, 2}, {0, 1, 2}, {1, -1}, {}},
      {"an empty list matches nothing", {}, {1, 2}, {-1, 1}, {}},
  };
  std::vector<char> taken;
  for (const auto& c : cases) {
    EXPECT_EQ(match_events(c.a, c.b, c.range), c.expected) << c.what;
    EXPECT_EQ(count_coincidences(c.a, c.b, c.range, taken), static_cast<int>(c.expected.size()))
        << c.what;
  }
}

TEST(ConcordanceMonteCarlo, ARangeWithLoAboveHiPutsEveryCycleAtZero) {
  const ConcordanceDraw draw{3, 4, {0, 100}, {0, 100}, {0.5, -0.5}};
  std::vector<double> histogram;
  add_cycles(draw, 7, 500, {.threads = 2}, histogram);
  const auto t = probability_table(histogram, 500);
  ASSERT_EQ(t.p.size(), 4u);  // min(3, 4) + 1 rows
  EXPECT_EQ(t.p[0], 1.0);
  EXPECT_EQ(t.q[0], 1.0);
  for (std::size_t k = 1; k < t.q.size(); ++k) EXPECT_EQ(t.q[k], 0.0);
}

TEST(ConcordanceMonteCarlo, NoEventsGiveOneRowWithCertainty) {
  std::vector<double> histogram;
  add_cycles({0, 5, {0, 10}, {0, 10}, {-1, 1}}, 1, 10, {.threads = 2}, histogram);
  const auto t = probability_table(histogram, 10);
  EXPECT_EQ(t.p, std::vector<double>{1.0});
  EXPECT_EQ(t.q, std::vector<double>{1.0});
}

TEST(ConcordanceMonteCarlo, AgreesWithTheExactChanceOfACoincidence) {
  // One A and two B events uniform on [0, 10], range ±1. Given a, each b misses with
  // chance 1 − p(a), p(a) = |[a−1, a+1] ∩ [0, 10]| / 10; so P(0) = E[(1 − p(a))²] =
  // 0.8 × 0.64 + 2 × (1/10) ∫₀¹ ((9 − a)/10)² da = 0.512 + 0.1446667 = 0.6566667 (by hand).
  const long cycles = 200000;
  std::vector<double> histogram;
  add_cycles({1, 2, {0, 10}, {0, 10}, {-1, 1}}, 2024, cycles, {.threads = 2}, histogram);
  const auto t = probability_table(histogram, static_cast<double>(cycles));
  const double p0 = 0.512 + 0.002 * (729.0 - 512.0) / 3.0;
  const double five_sigma = 5 * std::sqrt(p0 * (1 - p0) / static_cast<double>(cycles));
  EXPECT_NEAR(t.p[0], p0, five_sigma);
  EXPECT_NEAR(t.q[1], 1 - p0, five_sigma);
}

TEST(ConcordanceMonteCarlo, TheHistogramDependsOnTheSeedAloneNotOnThreads) {
  const ConcordanceDraw draw{6, 5, {0, 240}, {10, 250}, {-5, 5}};
  std::vector<double> one, many;
  EXPECT_TRUE(add_cycles(draw, 99, 3000, {.threads = 1}, one));
  EXPECT_TRUE(add_cycles(draw, 99, 3000, {.threads = 7}, many));
  EXPECT_EQ(one, many);
  std::vector<double> other;
  add_cycles(draw, 100, 3000, {.threads = 1}, other);
  EXPECT_NE(one, other);
}

TEST(ConcordanceMonteCarlo, ACancelledRunAnswersFalse) {
  std::vector<double> histogram;
  EXPECT_FALSE(add_cycles({2, 2, {0, 10}, {0, 10}, {-1, 1}}, 5, 1000,
                          {.threads = 2, .progress = [](long, long) { return false; }}, histogram));
}

TEST(ConcordanceTable, QIsOneMinusTheChanceOfFewerCoincidences) {
  // Counts 2, 5, 3 over 10 cycles: P = 0.2, 0.5, 0.3; Q = 1, 0.8, 0.3 (by hand).
  const auto t = probability_table({2, 5, 3}, 10);
  EXPECT_EQ(t.p, (std::vector<double>{0.2, 0.5, 0.3}));
  EXPECT_DOUBLE_EQ(t.q[0], 1.0);
  EXPECT_DOUBLE_EQ(t.q[1], 0.8);
  EXPECT_NEAR(t.q[2], 0.3, 1e-15);
}

}  // namespace
}  // namespace tidemark::stats
