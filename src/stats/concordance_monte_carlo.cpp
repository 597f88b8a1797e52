#include "stats/concordance_monte_carlo.h"

#include <algorithm>
#include <thread>

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

void add_cycles(const ConcordanceDraw& draw, std::uint64_t seed, long first_cycle, long cycles,
                int threads, std::vector<double>& histogram) {
  const auto bins = static_cast<std::size_t>(std::min(draw.n_a, draw.n_b) + 1);
  histogram.resize(bins, 0.0);
  const long workers = std::clamp<long>(threads, 1, std::max(1L, cycles));
  std::vector<std::vector<long long>> counts(static_cast<std::size_t>(workers),
                                             std::vector<long long>(bins, 0));
  std::vector<std::thread> pool;
  for (long w = 0; w < workers; ++w) {
    const long begin = first_cycle + cycles * w / workers;
    const long end = first_cycle + cycles * (w + 1) / workers;
    auto& mine = counts[static_cast<std::size_t>(w)];
    if (w + 1 == workers)
      run_cycles(draw, seed, begin, end, mine);
    else
      pool.emplace_back(
          [&draw, seed, begin, end, &mine] { run_cycles(draw, seed, begin, end, mine); });
  }
  for (auto& t : pool) t.join();
  for (const auto& c : counts)
    for (std::size_t k = 0; k < bins; ++k) histogram[k] += static_cast<double>(c[k]);
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
