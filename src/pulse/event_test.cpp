#include "pulse/event_test.h"

#include <cmath>
#include <limits>
#include <numeric>

namespace tidemark::pulse {

double event_p_value(double ssr_with, double ssr_without, int degrees_of_freedom) {
  const double gain = ssr_without - ssr_with;
  if (!(gain > 0) || degrees_of_freedom < 1) return 1.0;
  if (ssr_with <= 0) return 0.0;
  const double d = degrees_of_freedom;
  const double f = (gain / 2) / (ssr_with / d);
  return std::pow(1 + 2 * f / d, -d / 2);
}

ModelVector without_event(const ModelVector& model, int e) {
  ModelVector without = model;
  without.remove_event(e);
  std::vector<bool> free(without.free.size(), false);
  free[kBasal] = without.free[kBasal];
  // The neighbours are events e - 1 and e of the shorter vector.
  for (const int n : {e - 1, e}) {
    if (n < 0 || n >= without.layout.events) continue;
    for (const int j : {without.layout.position_index(n), without.layout.log_height_index(n)}) {
      free[j] = without.free[j];
    }
  }
  without.free = std::move(free);
  return without;
}

EventTestResult test_events(const DeconSeries& series, const DeconFitResult& fit,
                            const DeconFitOptions& options, std::vector<int> events) {
  EventTestResult result;
  if (events.empty()) {
    events.resize(static_cast<std::size_t>(fit.model.layout.events));
    std::iota(events.begin(), events.end(), 0);
  }
  DeconFitOptions refit_options = options;
  refit_options.max_iterations = options.test_iterations;
  for (const int e : events) {
    const ModelVector without = without_event(fit.model, e);
    const DeconFitResult refit = fit_model(series, without, refit_options);
    double ssr = std::numeric_limits<double>::infinity();
    if (refit.usable()) {
      ssr = refit.sum_of_squares;
    } else {
      weighted_sum_of_squares(series, without, ssr);
    }
    result.events.push_back(e);
    result.ssr_without.push_back(ssr);
    result.p_values.push_back(
        event_p_value(fit.sum_of_squares, ssr, fit.degrees_of_freedom()));
  }
  return result;
}

}  // namespace tidemark::pulse
