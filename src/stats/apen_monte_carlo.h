#pragma once
// The two Monte-Carlo passes of the ApEn calculation: noise added to the working series,
// and the working series shuffled. Each cycle draws from its own random stream,
// derived from the pass's seed and the cycle number, so the values depend on the seed
// alone and not on how many threads share the cycles (core::parallel_for).
#include <cstdint>
#include <span>
#include <vector>

#include "core/parallel.h"
#include "core/random.h"
#include "stats/apen.h"
#include "stats/apen_series.h"

namespace tidemark::stats {

struct PassOptions {
  int cycles = 1000;
  std::uint64_t seed = 1;
  CountMethod method = CountMethod::kFast;
  // The threads and the progress of the cycles; a cancelled pass is incomplete.
  core::ParallelOptions parallel{};
};

// ApEn(1) and ApEn(2) of each cycle, in cycle order; `complete` is false when the
// progress callback cancelled the pass.
struct PassValues {
  std::vector<float> apen1;
  std::vector<float> apen2;
  bool complete = true;
};

// The random stream of cycle `cycle` (0-based) of a pass seeded with `seed`.
core::Random cycle_stream(std::uint64_t seed, int cycle);

// The noise-added surrogate of `series` into `out` (resized to N): for each point
// z = (U1 + … + U12) − 6 from twelve fresh uniform deviates, out(i) = x(i) + z × s(i).
void add_noise(const WorkingSeries& series, core::Random& random, std::vector<float>& out);

// One cycle of the shuffle, in place on values and flags together: for t = 1 .. N−1
// (1-based), with a fresh uniform deviate u, j = min(trunc((t+1) + (N−t) × u), N) and
// points t and j exchange. j > t always (the cyclic-permutation variant).
void shuffle_cyclic(std::span<float> x, std::span<std::uint8_t> usable, core::Random& random);

// Noise pass: each cycle a fresh surrogate of `series`, its ApEn with tolerance r.
PassValues noise_pass(const WorkingSeries& series, float r, const PassOptions& options);

// Shuffle pass: a copy of `series` is shuffled once per cycle, each cycle shuffling
// the previous cycle's order, and its ApEn taken with tolerance r.
PassValues shuffle_pass(const WorkingSeries& series, float r, const PassOptions& options);

}  // namespace tidemark::stats
