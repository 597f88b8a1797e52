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
#include <span>

#include "core/parallel.h"
#include "feedback/objective.h"

namespace tidemark::feedback {

struct SwarmOptions {
  int size = 40;
  int iterations = 200;
  std::uint64_t seed = 1;
  core::ParallelOptions parallel{};
};

// complete is false when the progress callback cancelled the search.
SearchResult particle_swarm(const Objective& f, std::span<const double> start,
                           std::span<const double> lower, std::span<const double> upper,
                           const SwarmOptions& options);

}  // namespace tidemark::feedback
