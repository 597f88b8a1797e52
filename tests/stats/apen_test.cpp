#include "stats/apen.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace tidemark::stats {
namespace {

// Cr is rounded to single precision before its logarithm is taken: differences from the
// exact closed forms stay within a few float roundings of the ratios.
constexpr double kClosedFormTolerance = 1e-6;

using Flags = std::vector<std::uint8_t>;

struct HandCase {
  const char* name;
  std::vector<float> x;
  Flags usable;
  float r;
  double apen1;
  double apen2;
};

class ApEnHandCases : public testing::TestWithParam<CountMethod> {};

TEST_P(ApEnHandCases, MatchTheirClosedForms) {
  const std::vector<HandCase> cases = {
      // Every template matches every other: Cr = 1, all Φ = 0.
      {"constant", {5, 5, 5, 5, 5, 5}, Flags(6, 1), 0.0f, 0.0, 0.0},
      // r = 0, x = 1 2 1 2 1: m=1 Cr 3/5 (three 1s), 2/5 (two 2s); m=2 four templates,
      // each pattern twice, Cr = 1/2; m=3 (121)(212)(121): Cr 2/3, 1/3, 2/3.
      {"alternating_r0",
       {1, 2, 1, 2, 1},
       Flags(5, 1),
       0.0f,
       (3 * std::log(0.6) + 2 * std::log(0.4)) / 5 - std::log(0.5),
       std::log(0.5) - (2 * std::log(2.0 / 3) + std::log(1.0 / 3)) / 3},
      // Distinct values 0..6 further apart than r, point 4 missing: 6, 4 and 2 usable
      // templates for m = 1, 2, 3, each matching only itself: Φ(m) = ln(1 / usable).
      {"missing_middle",
       {0, 1, 2, 3, 4, 5, 6},
       {1, 1, 1, 0, 1, 1, 1},
       0.5f,
       std::log(4.0 / 6),
       std::log(2.0 / 4)},
  };
  for (const auto& c : cases) {
    const ApEnValues v = apen(c.x, c.usable, c.r, GetParam());
    EXPECT_NEAR(v.apen1, c.apen1, kClosedFormTolerance) << c.name;
    EXPECT_NEAR(v.apen2, c.apen2, kClosedFormTolerance) << c.name;
  }
}

TEST_P(ApEnHandCases, AMissingValueRemovesTheMTemplatesHoldingIt) {
  const std::vector<float> x = {0, 1, 2, 3, 4, 5, 6};
  const ApEnValues v = apen(x, Flags{1, 1, 1, 0, 1, 1, 1}, 0.5f, GetParam());
  // 7, 6, 5 templates of length 1, 2, 3, less 1, 2, 3 holding point 4.
  EXPECT_EQ(v.usable, (std::array<std::int32_t, 3>{6, 4, 2}));
}

struct ReferenceCase {
  std::string name;
  float r = 0;
  std::vector<float> x;
  Flags usable;
  float apen1 = 0;
  float apen2 = 0;
};

// tests/fixtures/stats/apen/apen_reference.txt, written by reference.py beside it: a
// transcription of the definition in Python with single precision emulated.
std::vector<ReferenceCase> read_reference() {
  std::ifstream in(std::string(TIDEMARK_FIXTURES) + "/stats/apen/apen_reference.txt");
  std::vector<ReferenceCase> cases;
  std::string head, values, flags, results;
  while (std::getline(in, head) && std::getline(in, values) && std::getline(in, flags) &&
         std::getline(in, results)) {
    ReferenceCase c;
    std::istringstream(head) >> c.name >> c.r;
    std::istringstream vs(values);
    for (float v; vs >> v;) c.x.push_back(v);
    std::istringstream fs(flags);
    for (int f; fs >> f;) c.usable.push_back(static_cast<std::uint8_t>(f));
    std::istringstream(results) >> c.apen1 >> c.apen2;
    cases.push_back(c);
  }
  return cases;
}

TEST_P(ApEnHandCases, MatchTheIndependentTranscriptionOfTheDefinition) {
  const auto cases = read_reference();
  ASSERT_EQ(cases.size(), 5u);
  for (const auto& c : cases) {
    const ApEnValues v = apen(c.x, c.usable, c.r, GetParam());
    EXPECT_FLOAT_EQ(v.apen1, c.apen1) << c.name;
    EXPECT_FLOAT_EQ(v.apen2, c.apen2) << c.name;
  }
}

INSTANTIATE_TEST_SUITE_P(BothMethods, ApEnHandCases,
                         testing::Values(CountMethod::kDirect, CountMethod::kFast));

TEST(ApEn, ASeriesWithoutATemplateOfThreeHasZeroPhiRatherThanNaN) {
  const ApEnValues v = apen(std::vector<float>{1, 2}, Flags{1, 1}, 0.2f);
  // Φ(1) = ln(1/2) (two distinct values), Φ(2) = ln(1) = 0, Φ(3) empty = 0.
  EXPECT_NEAR(v.apen1, std::log(0.5), kClosedFormTolerance);
  EXPECT_EQ(v.apen2, 0.0f);
}

}  // namespace
}  // namespace tidemark::stats
