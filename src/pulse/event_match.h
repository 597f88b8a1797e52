#pragma once
// Matching found secretion events to true ones, for judging a detection method against
// simulated truth.
#include <span>
#include <vector>

namespace tidemark::pulse {

struct EventMatch {
  int found = 0;      // events found
  int truth = 0;      // true events
  int matched = 0;    // pairs
  // For each true event, the index of the found event paired with it, or -1.
  std::vector<int> partner;
};

// Pairs found and true event times one to one: repeatedly the closest pair of unpaired
// events whose distance is at most `tolerance` (ties: the first true event,
// then the first found event, in list order). Both lists
// may be in any order.
EventMatch match_events(std::span<const double> truth, std::span<const double> found,
                        double tolerance);

}  // namespace tidemark::pulse
