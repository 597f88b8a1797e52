#include "stats/xapen_monte_carlo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "stats/xapen_surrogates.h"

namespace tidemark::stats {
namespace {

using Series = std::vector<double>;

TEST(RandomSurrogate, EachDrawIsAReorderingOfTheSeriesOwnValues) {
  core::Random random(7);
  const Series x = {5, 1, 4, 1, 3, 9, 2, 6}, none(8, 0.0);
  Series work, out;
  bool reordered = false;
  for (int cycle = 0; cycle < 200; ++cycle) {
    random_surrogate(x, none, random, work, out);
    reordered = reordered || out != x;
    std::sort(out.begin(), out.end());
    Series sorted = x;
    std::sort(sorted.begin(), sorted.end());
    ASSERT_EQ(out, sorted);
  }
  EXPECT_TRUE(reordered);
}

TEST(RandomSurrogate, ValuesAboveTheTakenMarkAreStillDrawnOnce) {
  core::Random random(3);
  const Series x = {3e35, -1e35, 2e35}, none(3, 0.0);
  Series work, out;
  random_surrogate(x, none, random, work, out);
  std::sort(out.begin(), out.end());
  EXPECT_EQ(out, (Series{-1e35, 2e35, 3e35}));
}

TEST(MeanSd, TableOfSmallSamples) {
  struct Case {
    Series values;
    double mean, sd;
  };
  // Hand derivations: {1,2,3,4}: mean 2.5, squares 5, SD sqrt(5/3); one value: SD 0.
  const Case cases[] = {{{1, 2, 3, 4}, 2.5, 1.2909944487358056}, {{7}, 7, 0}, {{}, 0, 0}};
  for (const Case& c : cases) {
    const MeanSd got = mean_sd(c.values);
    EXPECT_DOUBLE_EQ(got.mean, c.mean);
    EXPECT_NEAR(got.sd, c.sd, 1e-15);
  }
}

TEST(XApEnMonteCarlo, ResultsDependOnTheSeedAloneNotOnTheThreadCountOrCountingMethod) {
  const Series a = {0.1, -1.2, 0.7, 1.5, -0.3, 0.0, 0.9, -0.8, 1.1, -1.4};
  const Series b = {1.0, 0.2, -0.5, 0.4, -1.1, 1.3, -0.2, 0.6, -0.9, 0.3};
  const Series s(10, 0.1);
  XApEnMonteCarloOptions options{.cycles = 60, .seed = 11, .parallel = {.threads = 1}};
  const XApEnCycles one = xapen_monte_carlo(a, s, b, s, 0.5, options);
  options.parallel.threads = 3;
  options.method = CountMethod::kDirect;
  const XApEnCycles three = xapen_monte_carlo(a, s, b, s, 0.5, options);
  EXPECT_EQ(one.noise, three.noise);
  EXPECT_EQ(one.random, three.random);
  options.seed = 12;
  EXPECT_NE(xapen_monte_carlo(a, s, b, s, 0.5, options).noise, one.noise);
}

TEST(XApEnMonteCarlo, AProgressCallbackThatAnswersFalseCancelsTheRun) {
  const Series x = {1, 2, 3, 4}, s(4, 0.1);
  int reports = 0;
  XApEnMonteCarloOptions options{.cycles = 100, .seed = 1, .parallel = {.threads = 1}};
  options.parallel.progress = [&](long, long) { return ++reports > 1000; };
  EXPECT_TRUE(xapen_monte_carlo(x, s, x, s, 0.2, options).cancelled);
  EXPECT_GE(reports, 1);
}

}  // namespace
}  // namespace tidemark::stats
