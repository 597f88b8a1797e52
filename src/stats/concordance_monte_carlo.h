#pragma once
// The chance distribution of the number of coincidences when each series' events fall
// uniformly at random over its time range.
#include <cstdint>
#include <vector>

#include "core/parallel.h"
#include "stats/concordance_match.h"

namespace tidemark::stats {

struct TimeRange {
  double first = 0;
  double last = 0;
};

// What one Monte-Carlo run draws: n_a events over range_a, n_b over range_b.
struct ConcordanceDraw {
  int n_a = 0;
  int n_b = 0;
  TimeRange range_a;
  TimeRange range_b;
  CoincidenceRange coincidence;
};

// Runs cycles 0 .. cycles − 1 and adds, per cycle, one to histogram[c] where c is the
// number of coincidences of that cycle's lists (the histogram has min(n_a, n_b) + 1
// counters). Cycle i draws, from its own generator core::Random(b + i), where b is
// core::splitmix64 of the seed (so neighbouring seeds give unrelated cycles), the n_a
// times first_a + u (last_a − first_a) and then the n_b times first_b + u (last_b −
// first_b), each with a fresh uniform u on [0, 1), unsorted, and counts them with
// count_coincidences. The cycles are shared among threads by core::parallel_for, each
// worker counting apart; the histogram depends on the seed and the cycles alone. False,
// with the histogram incomplete, when the progress callback cancelled.
bool add_cycles(const ConcordanceDraw& draw, std::uint64_t seed, long cycles,
                const core::ParallelOptions& parallel, std::vector<double>& histogram);

// The probability table from the histogram over `cycles` cycles:
//   P(k) = histogram[k] / cycles,  Q(k) = 1 − Σ_{j<k} P(j)  (chance of >= k coincidences)
struct ProbabilityTable {
  std::vector<double> p;
  std::vector<double> q;
};
ProbabilityTable probability_table(const std::vector<double>& histogram, double cycles);

}  // namespace tidemark::stats
