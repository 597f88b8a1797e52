#include "feedback/fit_criterion.h"

#include <algorithm>
#include <cmath>

namespace tidemark::feedback {

double criterion_value(Criterion criterion, std::span<const double> z) {
  double q = 0;
  for (const double v : z) {
    switch (criterion) {
      case Criterion::kLeastSquares: q += v * v; break;
      case Criterion::kLeastAbsolute: q += std::abs(v); break;
      case Criterion::kMinMax: q = std::max(q, std::abs(v)); break;
    }
  }
  return q;
}

InformationCriteria information_criteria(Criterion criterion, double value, int points,
                                         int free_parameters) {
  const double n = points;
  const double k = free_parameters;
  double minus_two_log_l = 0;
  switch (criterion) {
    case Criterion::kLeastSquares: minus_two_log_l = n * std::log(value / n); break;
    case Criterion::kLeastAbsolute: minus_two_log_l = 2 * n * std::log(value / n); break;
    case Criterion::kMinMax: minus_two_log_l = 2 * n * std::log(value); break;
  }
  return {minus_two_log_l + 2 * k, minus_two_log_l + k * std::log(n)};
}

}  // namespace tidemark::feedback
