#pragma once
// Nelder-Mead simplex minimisation in a box, through the sine map of each coordinate
//
//   x = lower + (upper - lower) (1 + sin z) / 2,
//
// which takes every real z into [lower, upper], so the simplex moves freely in z and
// never leaves the box. Standard coefficients (reflection 1, expansion 2, contraction
// 1/2, shrink 1/2; J. A. Nelder and R. Mead 1965, as in Lagarias et al. 1998). The
// initial simplex steps 0.5 in z from the start. The search ends when the values at the
// simplex's vertices differ by no more than `tolerance` relative or `absolute`, or after
// `max_evaluations`. It is then restarted from its best point (at most 50 times) while
// a restart still lowers the value, which undoes premature collapses of the simplex on
// non-smooth criteria; the search counts as converged when its first simplex did.
#include <span>
#include <vector>

#include "feedback/objective.h"

namespace tidemark::feedback {

struct NelderMeadOptions {
  int max_evaluations = 20000;
  double tolerance = 1e-10;
  double absolute = 1e-10;
};

// complete is false when the evaluation limit came before convergence.
SearchResult nelder_mead(const Objective& f, std::span<const double> start,
                             std::span<const double> lower, std::span<const double> upper,
                             const NelderMeadOptions& options);

}  // namespace tidemark::feedback
