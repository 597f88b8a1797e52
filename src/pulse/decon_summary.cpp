#include "pulse/decon_summary.h"

#include <cmath>
#include <numbers>

namespace tidemark::pulse {

double secretion_rate(std::span<const double> params, const ModelLayout& layout, double t) {
  const double sigma = params[kSecretionSd];
  double s = params[kBasal];
  for (int e = 0; e < layout.events; ++e) {
    const double d = t - params[layout.position_index(e)];
    s += std::pow(10.0, params[layout.log_height_index(e)]) * std::exp(-d * d / (2 * sigma * sigma));
  }
  return s;
}

double event_mass(double log_height, double sigma) {
  return std::pow(10.0, log_height) * sigma * std::sqrt(2 * std::numbers::pi);
}

DeconSummary summarize(std::span<const double> params, const ModelLayout& layout, double first,
                       double last) {
  DeconSummary s;
  s.events = layout.events;
  if (layout.events >= 2) {
    s.mean_interval = (params[layout.position_index(layout.events - 1)] - params[layout.position_index(0)]) /
                      (layout.events - 1);
  }
  s.basal_secretion = params[kBasal] * (last - first);
  for (int e = 0; e < layout.events; ++e) {
    s.pulsatile_secretion += event_mass(params[layout.log_height_index(e)], params[kSecretionSd]);
  }
  return s;
}

}  // namespace tidemark::pulse
