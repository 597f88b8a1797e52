#pragma once
// The two surrogates of a series (values x, standard errors s) that the Monte-Carlo
// passes of cross-approximate entropy compare against. The noise z of every point is
// (U1 + ... + U12) - 6 from twelve fresh uniform deviates (core::Random::gaussian12).
#include <span>
#include <vector>

#include "core/random.h"

namespace tidemark::stats {

// A slot of the random surrogate's work copy whose point has been taken holds this
// mark; any value above kTakenThreshold counts as taken.
inline constexpr double kTakenMark = 2.0e35;
inline constexpr double kTakenThreshold = 1.0e35;

// out(i) = x(i) + z × s(i), one fresh z per point in order.
void noise_surrogate(std::span<const double> x, std::span<const double> s, core::Random& random,
                     std::vector<double>& out);

// The series sampled without replacement, with noise: for position i = 0 .. N-1 an index
// j = trunc(u × N) is drawn with a fresh uniform u and drawn again while point j has
// been taken (its slot in a work copy marked kTakenMark); then
// out(i) = x(j) + z × s(j) with a fresh z. Each call gives a reordering of x, with noise.
// `work` is scratch space.
void random_surrogate(std::span<const double> x, std::span<const double> s, core::Random& random,
                      std::vector<double>& work, std::vector<double>& out);

}  // namespace tidemark::stats
