#include "stats/xapen.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <vector>

#include "core/random.h"
#include "stats/xapen_counts.h"

namespace tidemark::stats {
namespace {

constexpr double kTight = 1e-12;
using Series = std::vector<double>;

// Values on a half-unit grid, so every distance is exact and r = 0.5, 1.0 fall on ties.
const Series kA = {1.0, 3.0, 2.0, 5.0, 4.0, 4.5, 1.5, 2.5, 3.5, 0.5};
const Series kB = {2.0, 2.5, 4.0, 1.0, 5.5, 3.0, 3.0, 0.0, 2.0, 4.5};

struct Reference {
  double r;
  std::array<double, 3> phi;
  std::array<double, 2> xapen;
  std::map<int, int> hits_m1, hits_m2;  // lag -> matches
};

// From tests/fixtures/stats/xapen/xapen_reference.py (an independent transcription, run once
// with python3; its output is copied here).
const Reference kReferences[] = {
    {0.5,
     {-1.4249375140594136, -2.351257284127319, -2.5126585295298014},
     {0.9263197700679053, 0.16140124540248246},
     {{-7, 1},
      {-6, 4},
      {-3, 3},
      {-2, 5},
      {-1, 2},
      {0, 1},
      {1, 2},
      {2, 1},
      {3, 1},
      {4, 2},
      {5, 2},
      {6, 2}},
     {{-6, 3}, {-3, 1}, {-2, 2}, {6, 1}}},
    {1.0,
     {-0.9174201325360309, -1.7220394530011025, -2.252728336819822},
     {0.8046193204650716, 0.5306888838187196},
     {{-7, 2},
      {-6, 4},
      {-5, 1},
      {-3, 3},
      {-2, 5},
      {-1, 5},
      {0, 2},
      {1, 6},
      {2, 2},
      {3, 2},
      {4, 3},
      {5, 2},
      {6, 2},
      {7, 2},
      {8, 1}},
     {{-7, 1}, {-6, 3}, {-3, 1}, {-2, 2}, {-1, 2}, {0, 1}, {1, 4}, {4, 1}, {6, 1}, {7, 1}}},
};

std::map<int, int> nonzero(const HitTable& hits, int m_index) {
  std::map<int, int> out;
  for (int lag = 1 - hits.n; lag < hits.n; ++lag) {
    if (hits.at(m_index, lag) != 0) out[lag] = static_cast<int>(hits.at(m_index, lag));
  }
  return out;
}

// The direct method and both fast methods (run scan, rank space).
struct Method {
  const char* name;
  bool fast;
  MatchMethod match;
};
const Method kMethods[] = {{"direct", false, MatchMethod::kAdaptive},
                           {"run scan", true, MatchMethod::kRunScan},
                           {"run scan, 16-byte vectors", true, MatchMethod::kRunScan16Bytes},
                           {"rank space", true, MatchMethod::kBoxes}};

CrossCounts counts_by(const Method& method, const Series& a, const Series& b, double r,
                      HitTable* hits) {
  return method.fast ? cross_counts_fast(a, b, r, hits, method.match)
                     : cross_counts_direct(a, b, r, hits);
}

TEST(CrossApEn, EveryMethodMatchesAnIndependentTranscriptionIncludingHitsByLag) {
  for (const Reference& ref : kReferences) {
    for (const Method& method : kMethods) {
      SCOPED_TRACE(testing::Message() << "r = " << ref.r << " " << method.name);
      HitTable hits(10);
      const XApEn x = xapen_from_counts(counts_by(method, kA, kB, ref.r, &hits), 10);
      for (int m = 0; m < 3; ++m) EXPECT_NEAR(x.phi[m], ref.phi[m], kTight);
      for (int m = 0; m < 2; ++m) EXPECT_NEAR(x.value[m], ref.xapen[m], kTight);
      EXPECT_EQ(nonzero(hits, 0), ref.hits_m1);
      EXPECT_EQ(nonzero(hits, 1), ref.hits_m2);
    }
  }
}

// Hand derivations: identical series of distinct values at r = 0 match only at the same
// place, so c = 1 and Phi(m) = ln(1/K) with K = 4, 3, 2: X-ApEn(1) = ln(1/4) - ln(1/3)
// = ln(3/4), X-ApEn(2) = ln(2/3). Series with no match at all give ln(0.5/K) per template.
TEST(CrossApEn, IdenticalSeriesNeverUseTheHalfCountAndDisjointOnesAlwaysDo) {
  const Series x = {1, 2, 3, 4};
  const XApEn same = cross_apen(x, x, 0.0);
  EXPECT_NEAR(same.phi[0], std::log(1.0 / 4), kTight);
  EXPECT_NEAR(same.value[0], std::log(3.0 / 4), kTight);
  EXPECT_NEAR(same.value[1], std::log(2.0 / 3), kTight);
  const XApEn apart = cross_apen(Series{0, 0, 0}, Series{10, 10, 10}, 1.0);
  EXPECT_NEAR(apart.phi[0], std::log(0.5 / 3), kTight);
  EXPECT_NEAR(apart.phi[2], std::log(0.5 / 1), kTight);
  // ln(0.5/3) - ln(0.5/2) = ln(2/3).
  EXPECT_NEAR(apart.value[0], std::log(2.0 / 3), kTight);
}

// Series of `n` values drawn from a few levels (many ties) or a continuum.
Series random_series(core::Random& random, int n, bool ties) {
  Series s(n);
  for (double& v : s) {
    v = ties ? std::floor(random.uniform() * 4) * 0.25 : random.gaussian12();
  }
  return s;
}

void expect_fast_equals_direct(const Series& a, const Series& b, double r) {
  const int n = static_cast<int>(a.size());
  HitTable direct_hits(n);
  const CrossCounts direct = cross_counts_direct(a, b, r, &direct_hits);
  for (const Method& method : kMethods) {
    if (!method.fast) continue;
    HitTable fast_hits(n);
    const CrossCounts fast = counts_by(method, a, b, r, &fast_hits);
    ASSERT_EQ(direct.counts, fast.counts) << method.name;
    ASSERT_EQ(direct_hits.counts, fast_hits.counts) << method.name;
  }
}

TEST(CrossApEn, FastCountsEqualDirectCountsOnThousandsOfRandomSeries) {
  core::Random random(2024);
  for (int trial = 0; trial < 3000; ++trial) {
    SCOPED_TRACE(testing::Message() << "trial " << trial);
    const int n = 1 + static_cast<int>(random.uniform() * 40);
    const bool ties = trial % 2 == 0;
    const Series a = random_series(random, n, ties), b = random_series(random, n, ties);
    const double r = trial % 5 == 0 ? 0.0 : (ties ? 0.25 : random.uniform());
    expect_fast_equals_direct(a, b, r);
  }
}

TEST(CrossApEn, FastCountsEqualDirectCountsOnLongSeriesAndSpecialValues) {
  core::Random random(99);
  for (const int n : {700, 1500}) {
    const Series a = random_series(random, n, true), b = random_series(random, n, false);
    for (const double r : {0.0, 0.25, 1.0}) expect_fast_equals_direct(a, b, r);
  }
  const double inf = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  // inf - inf and any difference with NaN are NaN: never a match.
  const Series a = {inf, 1, -inf, nan, 2, inf, 0};
  const Series b = {1, inf, inf, -inf, nan, 2, -inf};
  for (const double r : {0.0, 1.0, inf, -1.0, nan}) {
    SCOPED_TRACE(testing::Message() << "r " << r);
    expect_fast_equals_direct(a, b, r);
    expect_fast_equals_direct(b, a, r);
  }
}

TEST(Standardise, ValuesAndErrorsAreDividedByTheSampleSdAndAConstantSeriesIsOnlyCentred) {
  // {2, 4, 6}: mean 4, SD sqrt((4 + 0 + 4) / 2) = 2.
  const std::vector<float> x = {2, 4, 6}, s = {1, 1, 0.5f};
  const Standardised z = standardise(x, s);
  EXPECT_EQ(z.x, (Series{-1, 0, 1}));
  EXPECT_EQ(z.s, (Series{0.5, 0.5, 0.25}));
  const Standardised flat = standardise(std::vector<float>{3, 3}, std::vector<float>{1, 2});
  EXPECT_EQ(flat.x, (Series{0, 0}));
  EXPECT_EQ(flat.s, (Series{1, 2}));
}

}  // namespace
}  // namespace tidemark::stats
