#include "stats/concordance_monte_carlo.h"

#include <algorithm>

#include "core/random.h"

namespace tidemark::stats {
namespace {

void fill_uniform(core::Random& random, TimeRange range, std::vector<double>& times) {
  for (double& t : times) t = range.first + random.uniform() * (range.last - range.first);
}

// Cycles [begin, end) counted into `counts`.
void run_cycles(const ConcordanceDraw& d, std::uint64_t seed, long begin, long end,
                std::vector<long long>& counts) {
  std::uint64_t mixer = seed;
  const std::uint64_t base = core::splitmix64(mixer);
  std::vector<double> a(static_cast<std::size_t>(d.n_a)), b(static_cast<std::size_t>(d.n_b));
  std::vector<char> taken;
  for (long cycle = begin; cycle < end; ++cycle) {
    core::Random random(base + static_cast<std::uint64_t>(cycle));
    fill_uniform(random, d.range_a, a);
    fill_uniform(random, d.range_b, b);
    ++counts[static_cast<std::size_t>(count_coincidences(a, b, d.coincidence, taken))];
  }
}

}  // namespace

bool add_cycles(const ConcordanceDraw& draw, std::uint64_t seed, long cycles,
                const core::ParallelOptions& parallel, std::vector<double>& histogram) {
  const auto bins = static_cast<std::size_t>(std::min(draw.n_a, draw.n_b) + 1);
  histogram.resize(bins, 0.0);
  std::vector<std::vector<long long>> counts(
      static_cast<std::size_t>(core::parallel_workers(cycles, parallel)),
      std::vector<long long>(bins, 0));
  const bool complete =
      core::parallel_for(cycles, parallel, [&](int worker, long first, long last) {
        run_cycles(draw, seed, first, last, counts[static_cast<std::size_t>(worker)]);
      });
  for (const auto& c : counts)
    for (std::size_t k = 0; k < bins; ++k) histogram[k] += static_cast<double>(c[k]);
  return complete;
}

ProbabilityTable probability_table(const std::vector<double>& histogram, double cycles) {
  ProbabilityTable t;
  double below = 0;
  for (double count : histogram) {
    const double p = cycles > 0 ? count / cycles : 0.0;
    t.q.push_back(1 - below);
    t.p.push_back(p);
    below += p;
  }
  return t;
}

}  // namespace tidemark::stats
