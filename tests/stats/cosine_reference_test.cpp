#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "stats/cosine.h"
#include "stats/cosine_start.h"
#include "stats/fit_tolerances.h"
#include "stats/reference_fixture.h"

namespace tidemark::stats {
namespace {

using testing_support::FixtureBlock;
using testing_support::kIntervalInStandardErrors;
using testing_support::kValueInStandardErrors;
using testing_support::read_fixture;

// A start for the fit, made from R's answer v (period, amplitude, phase, mean, slope).
struct Start {
  const char* what;
  CosineValues (*from)(const CosineValues& v);
};

const Start kStarts[] = {
    {"near the answer",
     [](const CosineValues& v) {
       return CosineValues{v[0], 0.7 * v[1], v[2] + 0.1 * v[0], v[3] - 1, 0};
     }},
    {"amplitude negative, phase half a period on: the fit ends negative and is flipped",
     [](const CosineValues& v) {
       return CosineValues{v[0], -v[1], v[2] + 0.5 * v[0], v[3], 0};
     }},
    {"phase two periods below zero",
     [](const CosineValues& v) {
       return CosineValues{v[0], v[1], v[2] - 2 * v[0], v[3], 0};
     }},
    {"phase three periods on",
     [](const CosineValues& v) {
       return CosineValues{v[0], v[1], v[2] + 3 * v[0], v[3], 0};
     }},
};

// Every case of tests/fixtures/stats/cosine_reference.txt (a noisy cosinor; R's lm on the
// cosine and sine terms gives its amplitude, phase, mean and slope, and R's nls its
// standard errors), fitted from starts that the normalisation must bring back to R's
// amplitude and its phase in [0, Period).
TEST(CosineFit, AgreesWithRsLinearCosinorFromEveryStart) {
  const auto cases = read_fixture("stats/cosine_reference.txt", "case");
  ASSERT_EQ(cases.size(), 2u);
  for (const FixtureBlock& c : cases) {
    const auto t = c.numbers("t"), y = c.numbers("y"), value = c.numbers("value");
    const auto se = c.numbers("se"), half_width = c.numbers("half_width");
    CosineValues want{};
    std::copy(value.begin(), value.end(), want.begin());
    const bool slope_fitted = c.number("slope_fitted") != 0;
    const CosineFlags flags = {false, true, true, true, slope_fitted};
    const CosineStart mode_start = start_cosine(t, y);
    for (const Start& s : kStarts) {
      SCOPED_TRACE(c.name + ", " + s.what);
      const CosineFit fit = fit_cosine(t, y, s.from(want), flags, mode_start.reference_variance);
      ASSERT_EQ(fit.engine.code, Lsfit2Code::kOk) << fit.engine.message;
      EXPECT_EQ(fit.values[kPeriod], want[kPeriod]);
      // se and half_width list the fitted parameters from the amplitude on.
      for (std::size_t k = 0; k < se.size(); ++k) {
        const int j = kAmplitude + static_cast<int>(k);
        EXPECT_NEAR(fit.values[j], want[j], kValueInStandardErrors * se[k]) << kCosineNames[j];
        EXPECT_NEAR(fit.engine.upper[j] - fit.engine.values[j], half_width[k],
                    kIntervalInStandardErrors * se[k])
            << kCosineNames[j];
      }
      if (!slope_fitted) {
        EXPECT_EQ(fit.values[kSlope], 0.0);
      }
      EXPECT_NEAR(fit.engine.variance, c.number("variance"), 1e-10 * c.number("variance"));
      EXPECT_NEAR(fit.percent, c.number("percent"), 1e-9 * c.number("percent"));
    }
  }
}

}  // namespace
}  // namespace tidemark::stats
