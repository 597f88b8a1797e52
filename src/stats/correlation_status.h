#pragma once
// How a correlation routine ended: ok, or the message that says which argument it
// refused, with the values filled in.
#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace tidemark::stats {

enum class CorrelationCode { kOk, kRefused };

struct CorrelationStatus {
  CorrelationCode code = CorrelationCode::kOk;
  std::string message;

  bool ok() const { return code == CorrelationCode::kOk; }
  static CorrelationStatus refused(std::string text) {
    return {CorrelationCode::kRefused, std::move(text)};
  }
};

// A correlation per lag; no value where it is undefined (a series without variance, a
// recursion whose denominator vanishes, a lag with too few pairs).
using Correlations = std::vector<std::optional<double>>;

// covariance / scale when the scale is positive and the quotient finite (sums of values
// near the top of the double range can overflow), else undefined.
inline std::optional<double> correlation_of(double covariance, double scale) {
  const double r = covariance / scale;
  if (scale > 0 && std::isfinite(r)) return r;
  return std::nullopt;
}

}  // namespace tidemark::stats
