#include "pulse/event_test.h"

#include <cmath>
#include <limits>

namespace tidemark::pulse {

double event_p_value(double ssr_with, double ssr_without, int degrees_of_freedom) {
  const double gain = ssr_without - ssr_with;
  if (!(gain > 0) || degrees_of_freedom < 1) return 1.0;
  if (ssr_with <= 0) return 0.0;
  const double d = degrees_of_freedom;
  const double f = (gain / 2) / (ssr_with / d);
  return std::pow(1 + 2 * f / d, -d / 2);
}

EventTestResult test_events(const DeconSeries& series, const DeconFitResult& fit,
                            const DeconFitOptions& options) {
  EventTestResult result;
  DeconFitOptions refit_options = options;
  refit_options.max_iterations = options.test_iterations;
  for (int e = 0; e < fit.model.layout.events; ++e) {
    ModelVector without = fit.model;
    without.remove_event(e);
    const DeconFitResult refit = fit_model(series, without, refit_options);
    double ssr = std::numeric_limits<double>::infinity();
    if (refit.usable()) {
      ssr = refit.sum_of_squares;
    } else {
      weighted_sum_of_squares(series, without, ssr);
    }
    result.ssr_without.push_back(ssr);
    result.p_values.push_back(
        event_p_value(fit.sum_of_squares, ssr, fit.degrees_of_freedom()));
  }
  return result;
}

std::vector<double> screen_events(const DeconSeries& series, const DeconFitResult& fit) {
  std::vector<double> p_values;
  for (int e = 0; e < fit.model.layout.events; ++e) {
    ModelVector without = fit.model;
    without.remove_event(e);
    double ssr = std::numeric_limits<double>::infinity();
    weighted_sum_of_squares(series, without, ssr);
    p_values.push_back(event_p_value(fit.sum_of_squares, ssr, fit.degrees_of_freedom()));
  }
  return p_values;
}

}  // namespace tidemark::pulse
