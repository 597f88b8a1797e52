#include <gtest/gtest.h>

#include <cmath>

#include "stats/concordance_monte_carlo.h"
#include "stats/reference_fixture.h"

namespace tidemark::stats {
namespace {

using testing_support::FixtureBlock;
using testing_support::read_fixture;

constexpr long kCycles = 1'000'000;

// Every case of tests/fixtures/stats/concordance_reference.txt: R's own simulation of the
// random placement and the first-free matcher (its own generator, 10^7 cycles). Each of
// P(k) and Q(k) is a binomial proportion in both runs, so the two estimates differ by a
// normal deviate of standard deviation sqrt(p (1 - p) (1 / kCycles + 1 / R's cycles));
// five of those bound it (a chance of 6e-7 per row of failing for a correct program).
TEST(ConcordanceMonteCarlo, AgreesWithAnIndependentSimulationInR) {
  const auto cases = read_fixture("stats/concordance_reference.txt", "case");
  ASSERT_EQ(cases.size(), 2u);
  for (const FixtureBlock& c : cases) {
    SCOPED_TRACE(c.name);
    const auto events = c.numbers("events"), a = c.numbers("range_a"), b = c.numbers("range_b");
    const auto range = c.numbers("coincidence");
    const ConcordanceDraw draw{static_cast<int>(events[0]),
                               static_cast<int>(events[1]),
                               {a[0], a[1]},
                               {b[0], b[1]},
                               {range[0], range[1]}};
    std::vector<double> histogram;
    add_cycles(draw, 20261121, kCycles, {.threads = 2}, histogram);
    const auto table = probability_table(histogram, static_cast<double>(kCycles));
    const auto rows = c.all("p");  // k, P(k)
    ASSERT_EQ(table.p.size(), rows.size());
    const double inverse_runs = 1.0 / kCycles + 1.0 / c.number("cycles");
    double below = 0;  // R's chance of fewer than k coincidences
    for (std::size_t k = 0; k < rows.size(); ++k) {
      const double p = *rows[k][1], q = 1 - below;
      EXPECT_NEAR(table.p[k], p, 5 * std::sqrt(p * (1 - p) * inverse_runs)) << "P(" << k << ")";
      EXPECT_NEAR(table.q[k], q, 5 * std::sqrt(q * (1 - q) * inverse_runs) + 1e-12)
          << "Q(" << k << ")";
      below += p;
    }
  }
}

}  // namespace
}  // namespace tidemark::stats
