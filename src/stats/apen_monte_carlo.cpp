#include "stats/apen_monte_carlo.h"

#include <algorithm>

namespace tidemark::stats {
namespace {

// Runs `cycles(worker_state, first, last)` over the pass's cycles, each worker with its
// own `State`, into values sized for every cycle.
template <typename State, typename Cycles>
PassValues run_pass(const PassOptions& options, Cycles cycles) {
  PassValues values;
  const long count = std::max(options.cycles, 0);
  values.apen1.assign(static_cast<std::size_t>(count), 0.0f);
  values.apen2 = values.apen1;
  std::vector<State> states(
      static_cast<std::size_t>(core::parallel_workers(count, options.parallel)));
  values.complete =
      core::parallel_for(count, options.parallel, [&](int worker, long first, long last) {
        cycles(states[static_cast<std::size_t>(worker)], values, static_cast<int>(first),
               static_cast<int>(last));
      });
  return values;
}

// A worker's copy of the series in the order of the cycles it has shuffled so far.
struct ShuffledCopy {
  std::vector<float> x;
  std::vector<std::uint8_t> usable;
  int cycles = -1;  // shuffles applied; -1 before the copy is made
};

void keep(PassValues& values, int cycle, const ApEnValues& a) {
  values.apen1[static_cast<std::size_t>(cycle)] = a.apen1;
  values.apen2[static_cast<std::size_t>(cycle)] = a.apen2;
}

}  // namespace

core::Random cycle_stream(std::uint64_t seed, int cycle) {
  std::uint64_t state = seed ^ (0xD1B54A32D192ED03ULL * (static_cast<std::uint64_t>(cycle) + 1));
  return core::Random(core::splitmix64(state));
}

void add_noise(const WorkingSeries& series, core::Random& random, std::vector<float>& out) {
  out.resize(series.size());
  for (std::size_t i = 0; i < series.size(); ++i) {
    const double z = random.gaussian12();
    out[i] = static_cast<float>(series.x[i] + z * series.s[i]);
  }
}

void shuffle_cyclic(std::span<float> x, std::span<std::uint8_t> usable, core::Random& random) {
  const std::size_t n = x.size();
  for (std::size_t t = 1; t < n; ++t) {
    const double u = random.uniform();
    const double pick = static_cast<double>(t + 1) + static_cast<double>(n - t) * u;
    const std::size_t j = std::min(static_cast<std::size_t>(pick), n);
    std::swap(x[t - 1], x[j - 1]);
    std::swap(usable[t - 1], usable[j - 1]);
  }
}

PassValues noise_pass(const WorkingSeries& series, float r, const PassOptions& options) {
  return run_pass<std::vector<float>>(
      options, [&](std::vector<float>& surrogate, PassValues& values, int first, int last) {
        for (int c = first; c < last; ++c) {
          core::Random random = cycle_stream(options.seed, c);
          add_noise(series, random, surrogate);
          keep(values, c, apen(surrogate, series.usable, r, options.method));
        }
      });
}

PassValues shuffle_pass(const WorkingSeries& series, float r, const PassOptions& options) {
  return run_pass<ShuffledCopy>(
      options, [&](ShuffledCopy& copy, PassValues& values, int first, int last) {
        if (copy.cycles < 0) copy = {series.x, series.usable, 0};
        // The cycles this worker did not run shuffle the copy into the order `first` starts
        // from: a worker's chunks come in increasing order, so the copy only moves forward.
        for (; copy.cycles < first; ++copy.cycles) {
          core::Random random = cycle_stream(options.seed, copy.cycles);
          shuffle_cyclic(copy.x, copy.usable, random);
        }
        for (; copy.cycles < last; ++copy.cycles) {
          core::Random random = cycle_stream(options.seed, copy.cycles);
          shuffle_cyclic(copy.x, copy.usable, random);
          keep(values, copy.cycles, apen(copy.x, copy.usable, r, options.method));
        }
      });
}

}  // namespace tidemark::stats
