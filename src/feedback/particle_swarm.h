#pragma once
// Bounded particle swarm minimisation (J. Kennedy and R. Eberhart 1995, with the
// constriction coefficients of M. Clerc and J. Kennedy 2002: inertia 0.7298, both
// accelerations 1.49618).
//
// Particles start uniformly in the box (the first at the given start point), velocities
// uniform in +/- half the box; each iteration moves every particle by
//   v <- w v + c1 u1 (own best - x) + c2 u2 (swarm best - x),  x <- x + v,
// with |v| capped at the box width and x clamped to the box (the velocity component
// that hit a wall is zeroed). All random numbers come from one generator seeded with
// `seed` and are drawn in particle order between evaluations; only the evaluations of a
// generation are shared among threads and the bests are updated in particle order, so
// the result depends on the seed alone, never on the thread count.
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "core/parallel.h"

namespace tidemark::feedback {

// The function to minimise at a point of the box; +inf where it cannot be evaluated.
// Called concurrently from several threads: it must not change shared state.
using Objective = std::function<double(std::span<const double> x)>;

struct SwarmOptions {
  int size = 40;
  int iterations = 200;
  std::uint64_t seed = 1;
  core::ParallelOptions parallel{};
};

struct SwarmResult {
  std::vector<double> best;
  double value = 0;
  long evaluations = 0;
  bool cancelled = false;
};

SwarmResult particle_swarm(const Objective& f, std::span<const double> start,
                           std::span<const double> lower, std::span<const double> upper,
                           const SwarmOptions& options);

}  // namespace tidemark::feedback
