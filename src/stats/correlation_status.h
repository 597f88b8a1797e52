#pragma once
// How a correlation routine ended: ok, or the message that says which argument it
// refused, with the values filled in.
#include <optional>
#include <string>
#include <vector>

namespace tidemark::stats {

struct CorrelationStatus {
  bool ok = true;
  std::string message;

  static CorrelationStatus refused(std::string text) { return {false, std::move(text)}; }
};

// A correlation per lag; no value where it is undefined (a series without variance, a
// recursion whose denominator vanishes, a lag with too few pairs).
using Correlations = std::vector<std::optional<double>>;

}  // namespace tidemark::stats
