#include "core/run_id.h"

#include <gtest/gtest.h>

#include <set>

namespace tidemark::core {
namespace {

// From the xoshiro256** state {1, 2, 3, 4} the first ten deviates are the reference
// outputs >> 11 times 2^-53; int(1 + 25 u) of each, worked in python3 with exact
// fractions, gives the letters A A A B B A V L O D.
TEST(RunId, LetterIsTheAlphabetPositionOneAndTwentyFiveTimesTheDeviate) {
  Random random = Random::from_state({1, 2, 3, 4});
  EXPECT_EQ(run_identifier(random).substr(0, 10), "AAABBAVLOD");
}

// 2000 identifiers draw 40,000 letters, each of A..Y with probability 1/25 (about 1600
// expected), so every one of them appears; Z would need u = 1.
TEST(RunId, UsesEveryLetterFromAToYAndNeverZ) {
  Random random(12345);
  std::set<char> seen;
  for (int i = 0; i < 2000; ++i) {
    const std::string id = run_identifier(random);
    ASSERT_EQ(id.size(), static_cast<std::size_t>(kRunIdLength));
    seen.insert(id.begin(), id.end());
  }
  EXPECT_EQ(seen.size(), 25u);
  EXPECT_EQ(*seen.begin(), 'A');
  EXPECT_EQ(*seen.rbegin(), 'Y');
}

// The largest deviate, 1 - 2^-53, still maps to Y (state from random_test.cpp).
TEST(RunId, LargestDeviateGivesY) {
  Random random = Random::from_state({0, 5748594724359139783ULL, 0, 0});
  EXPECT_EQ(run_identifier(random)[0], 'Y');
}

}  // namespace
}  // namespace tidemark::core
