#include "core/random.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace tidemark::core {
namespace {

// Outputs of the authors' reference C code (splitmix64.c and xoshiro256starstar.c),
// as recorded in the tests of the independent Rust crate rand_xoshiro 0.6.0 (Debian
// package librust-rand-xoshiro-dev); the first ten of xoshiro256** from the state
// {1, 2, 3, 4}, the first five of SplitMix64 from 1477776061723855037.
constexpr std::array<std::uint64_t, 10> kXoshiroFrom1234 = {11520ULL,
                                                            0ULL,
                                                            1509978240ULL,
                                                            1215971899390074240ULL,
                                                            1216172134540287360ULL,
                                                            607988272756665600ULL,
                                                            16172922978634559625ULL,
                                                            8476171486693032832ULL,
                                                            10595114339597558777ULL,
                                                            2904607092377533576ULL};
constexpr std::array<std::uint64_t, 5> kSplitMixFrom1477776061723855037 = {
    1985237415132408290ULL, 2979275885539914483ULL, 13511426838097143398ULL, 8488337342461049707ULL,
    15141737807933549159ULL};

TEST(Random, XoshiroMatchesTheAuthorsReferenceOutputs) {
  Random random = Random::from_state({1, 2, 3, 4});
  for (const std::uint64_t expected : kXoshiroFrom1234) EXPECT_EQ(random.next(), expected);
}

TEST(Random, SplitMixMatchesTheAuthorsReferenceOutputs) {
  std::uint64_t state = 1477776061723855037ULL;
  for (const std::uint64_t expected : kSplitMixFrom1477776061723855037) {
    EXPECT_EQ(splitmix64(state), expected);
  }
}

// Uniform deviates are the top 53 bits of the reference outputs times 2^-53:
// 11520 >> 11 = 5, 0 >> 11 = 0, 1509978240 >> 11 = 737294 (python3 integer shifts).
// The raw output 2^64 - 1 is the largest possible, giving 1 - 2^-53; the state with
// s1 = 5748594724359139783 yields it (solved in python3 from rotl(5 s1, 7) × 9 = 2^64 - 1).
TEST(Random, UniformTakesTheTop53BitsAndNeverReachesOne) {
  Random reference = Random::from_state({1, 2, 3, 4});
  EXPECT_EQ(reference.uniform(), std::ldexp(5.0, -53));
  EXPECT_EQ(reference.uniform(), 0.0);
  EXPECT_EQ(reference.uniform(), std::ldexp(737294.0, -53));

  Random largest = Random::from_state({0, 5748594724359139783ULL, 0, 0});
  EXPECT_EQ(largest.uniform(), 1.0 - std::ldexp(1.0, -53));
}

TEST(Random, SameSeedGivesTheSameSequenceAndSeedRestartsIt) {
  Random a(20240601), b(20240601), other(20240602);
  std::vector<double> from_a(1000), from_b(1000), from_other(1000);
  a.uniform(from_a);
  for (double& u : from_b) u = b.uniform();
  other.uniform(from_other);
  EXPECT_EQ(from_a, from_b);
  EXPECT_NE(from_a, from_other);

  a.seed(20240601);
  EXPECT_EQ(a.uniform(), from_a[0]);
}

// The sum of twelve U(0, 1) minus 6 has mean 0, variance 12 × 1/12 = 1 and fourth central
// moment 2.9 (Irwin-Hall: excess kurtosis -6/5 / 12). Over n draws the sample mean has
// SD 1/sqrt(n) and the sample variance SD sqrt((2.9 - 1) / n); the tolerances are five of
// those SDs.
TEST(Random, Gaussian12HasMeanZeroAndVarianceOne) {
  constexpr int kDraws = 200000;
  const double mean_tolerance = 5 / std::sqrt(kDraws);
  const double variance_tolerance = 5 * std::sqrt(1.9 / kDraws);
  Random random(7);
  double sum = 0, sum_squares = 0, lowest = 0, highest = 0;
  for (int i = 0; i < kDraws; ++i) {
    const double z = random.gaussian12();
    sum += z;
    sum_squares += z * z;
    lowest = std::min(lowest, z);
    highest = std::max(highest, z);
  }
  const double mean = sum / kDraws;
  const double variance = (sum_squares - kDraws * mean * mean) / (kDraws - 1);
  EXPECT_NEAR(mean, 0.0, mean_tolerance);
  EXPECT_NEAR(variance, 1.0, variance_tolerance);
  EXPECT_GE(lowest, -6.0);
  EXPECT_LT(highest, 6.0);
}

}  // namespace
}  // namespace tidemark::core
