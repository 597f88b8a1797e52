#pragma once
// What the swarm and Nelder-Mead minimise, and what they return: how the search ended
// (ok, or why it stopped early), with the best point found either way.
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace tidemark::feedback {

// The function to minimise at a point of the box; +inf where it cannot be evaluated.
// The swarm calls it concurrently from several threads: it must not change shared state.
using Objective = std::function<double(std::span<const double> x)>;

enum class SearchStatus {
  kOk = 0,
  kCancelled,     // the swarm: the progress callback stopped it
  kNotConverged,  // Nelder-Mead: the evaluation limit came before convergence
};

struct SearchResult {
  SearchStatus status = SearchStatus::kOk;
  std::string message;       // why it ended early; empty when ok
  std::vector<double> best;  // the best point found (also when it ended early)
  double value = 0;          // the objective there
  long evaluations = 0;
  bool ok() const { return status == SearchStatus::kOk; }
};

}  // namespace tidemark::feedback
