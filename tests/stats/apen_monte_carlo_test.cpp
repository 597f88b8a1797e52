#include "stats/apen_monte_carlo.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

namespace tidemark::stats {
namespace {

TEST(ApEnShuffle, ATwoPointSeriesAlwaysExchanges) {
  for (std::uint64_t seed = 1; seed <= 50; ++seed) {
    core::Random random(seed);
    std::vector<float> x = {1, 2};
    std::vector<std::uint8_t> usable = {1, 0};
    shuffle_cyclic(x, usable, random);
    EXPECT_EQ(x, (std::vector<float>{2, 1}));
    EXPECT_EQ(usable, (std::vector<std::uint8_t>{0, 1}));
  }
}

// Exchanging point t only with a later point (Sattolo's algorithm) gives a permutation
// made of one cycle through all N points: following "where did point k go" from point 0
// returns to it after exactly N steps.
TEST(ApEnShuffle, EveryShuffleIsOneCycleThroughAllPoints) {
  for (int n : {3, 5, 17, 64}) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
      core::Random random(seed);
      std::vector<float> x(static_cast<std::size_t>(n));
      std::iota(x.begin(), x.end(), 0.0f);
      std::vector<std::uint8_t> usable(x.size(), 1);
      shuffle_cyclic(x, usable, random);
      std::size_t at = 0;
      int steps = 0;
      do {
        at = static_cast<std::size_t>(x[at]);
        ++steps;
      } while (at != 0 && steps <= n);
      EXPECT_EQ(steps, n) << "n " << n << " seed " << seed;
    }
  }
}

WorkingSeries wavy_series(int n) {
  WorkingSeries s;
  for (int i = 0; i < n; ++i) {
    s.x.push_back(static_cast<float>(std::sin(i * 0.7) + 0.1 * (i % 5)));
    s.s.push_back(0.2f);
    s.usable.push_back(i % 11 == 4 ? 0 : 1);
  }
  return s;
}

// Each cycle has its own stream, and a worker replays the shuffles of the cycles it did
// not run, so neither the thread count nor the counting method changes a single value.
TEST(ApEnPasses, ValuesDependOnTheSeedAloneNotOnThreadsOrCountingMethod) {
  const WorkingSeries s = wavy_series(90);
  const PassOptions one{
      .cycles = 13, .seed = 77, .method = CountMethod::kDirect, .parallel = {.threads = 1}};
  PassOptions three = one;
  three.parallel.threads = 3;
  three.method = CountMethod::kFast;
  for (auto pass : {&noise_pass, &shuffle_pass}) {
    const PassValues a = (*pass)(s, 0.3f, one);
    const PassValues b = (*pass)(s, 0.3f, three);
    EXPECT_EQ(a.apen1, b.apen1);
    EXPECT_EQ(a.apen2, b.apen2);
  }
}

TEST(ApEnPasses, ShuffledCyclesChainOnThePreviousOrder) {
  const WorkingSeries s = wavy_series(40);
  const PassValues pass =
      shuffle_pass(s, 0.3f, {.cycles = 3, .seed = 5, .parallel = {.threads = 2}});
  // The third cycle's series is the data shuffled by the streams of cycles 0, 1 and 2.
  std::vector<float> x = s.x;
  std::vector<std::uint8_t> usable = s.usable;
  for (int c = 0; c < 3; ++c) {
    core::Random random = cycle_stream(5, c);
    shuffle_cyclic(x, usable, random);
  }
  EXPECT_EQ(pass.apen1[2], apen(x, usable, 0.3f, CountMethod::kDirect).apen1);
}

TEST(ApEnPasses, AProgressCallbackThatAnswersFalseCancelsThePass) {
  int calls = 0;
  const PassOptions options{
      .cycles = 50, .seed = 1, .parallel = {.threads = 1, .progress = [&](long, long) {
                                              ++calls;
                                              return false;
                                            }}};
  EXPECT_FALSE(noise_pass(wavy_series(30), 0.3f, options).complete);
  EXPECT_GE(calls, 1);
}

}  // namespace
}  // namespace tidemark::stats
