#include "stats/apen_monte_carlo.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace tidemark::stats {
namespace {

// One worker's share: cycles [first, last). `run` computes them in order.
using BlockRunner = std::function<void(int first, int last)>;

// Splits the cycles into contiguous blocks, one per thread, runs them and reports the
// number of cycles done to `progress` on the calling thread as they finish. `done`
// counts finished cycles; `stop` asks the workers to end early.
bool run_blocks(const PassOptions& options, std::atomic<int>& done, std::atomic<bool>& stop,
                const BlockRunner& run) {
  const int cycles = std::max(options.cycles, 0);
  int threads =
      options.threads > 0 ? options.threads : static_cast<int>(std::thread::hardware_concurrency());
  threads = std::clamp(threads, 1, std::max(cycles, 1));
  std::mutex mutex;
  std::condition_variable changed;
  int finished_threads = 0;
  std::vector<std::jthread> workers;
  for (int t = 0; t < threads; ++t) {
    const int first = static_cast<int>(static_cast<long long>(cycles) * t / threads);
    const int last = static_cast<int>(static_cast<long long>(cycles) * (t + 1) / threads);
    workers.emplace_back([&, first, last] {
      run(first, last);
      std::lock_guard lock(mutex);
      ++finished_threads;
      changed.notify_all();
    });
  }
  std::unique_lock lock(mutex);
  int reported = -1;
  while (true) {
    changed.wait_for(lock, std::chrono::milliseconds(50),
                     [&] { return finished_threads == threads; });
    const int now = done.load();
    if (options.progress && now != reported) {
      reported = now;
      if (!options.progress(now)) stop = true;
    }
    if (finished_threads == threads) break;
  }
  return !stop.load();
}

PassValues run_pass(const PassOptions& options,
                    const std::function<void(int, int, std::atomic<int>&, std::atomic<bool>&,
                                             PassValues&)>& block) {
  PassValues values;
  values.apen1.assign(static_cast<std::size_t>(std::max(options.cycles, 0)), 0.0f);
  values.apen2 = values.apen1;
  std::atomic<int> done{0};
  std::atomic<bool> stop{false};
  values.complete = run_blocks(
      options, done, stop, [&](int first, int last) { block(first, last, done, stop, values); });
  return values;
}

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
  return run_pass(options, [&](int first, int last, std::atomic<int>& done, std::atomic<bool>& stop,
                               PassValues& values) {
    std::vector<float> surrogate;
    for (int c = first; c < last && !stop; ++c) {
      core::Random random = cycle_stream(options.seed, c);
      add_noise(series, random, surrogate);
      keep(values, c, apen(surrogate, series.usable, r, options.method));
      ++done;
    }
  });
}

PassValues shuffle_pass(const WorkingSeries& series, float r, const PassOptions& options) {
  return run_pass(options, [&](int first, int last, std::atomic<int>& done, std::atomic<bool>& stop,
                               PassValues& values) {
    std::vector<float> x = series.x;
    std::vector<std::uint8_t> usable = series.usable;
    // The cycles before this block shuffle the copy into the order it starts from.
    for (int c = 0; c < first && !stop; ++c) {
      core::Random random = cycle_stream(options.seed, c);
      shuffle_cyclic(x, usable, random);
    }
    for (int c = first; c < last && !stop; ++c) {
      core::Random random = cycle_stream(options.seed, c);
      shuffle_cyclic(x, usable, random);
      keep(values, c, apen(x, usable, r, options.method));
      ++done;
    }
  });
}

}  // namespace tidemark::stats
