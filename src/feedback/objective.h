#pragma once
// What the swarm and Nelder-Mead minimise, and what they return.
#include <functional>
#include <span>
#include <vector>

namespace tidemark::feedback {

// The function to minimise at a point of the box; +inf where it cannot be evaluated.
// The swarm calls it concurrently from several threads: it must not change shared state.
using Objective = std::function<double(std::span<const double> x)>;

struct SearchResult {
  std::vector<double> best;  // the best point found
  double value = 0;          // the objective there
  long evaluations = 0;
  // The swarm: it ran all its iterations (false: cancelled). Nelder-Mead: it converged
  // (false: the evaluation limit came first).
  bool complete = false;
};

}  // namespace tidemark::feedback
