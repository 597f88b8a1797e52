#include "feedback/modes/srquant_defaults.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "stats/periodic_series.h"

namespace tidemark::feedback {

namespace {

Bounded held(double value) {
  return {value, value, value, false};
}

Bounded within(double start, double lower, double upper) {
  return {std::clamp(start, lower, upper), lower, upper, true};
}

double median(std::vector<double> v) {
  if (v.empty()) return 1;
  const auto mid = v.begin() + static_cast<std::ptrdiff_t>(v.size() / 2);
  std::nth_element(v.begin(), mid, v.end());
  return *mid;
}

// EC50's bounds from the input's values: half its smallest positive value to twice its
// largest (a potency just outside the values seen still shapes the response over them),
// its value +- 50 % when they coincide.
Bounded potency(const std::vector<double>& x) {
  double low = HUGE_VAL, high = 0;
  for (const double v : x) {
    if (v > 0) low = std::min(low, v);
    high = std::max(high, v);
  }
  if (!(high > 0)) return within(0.5, 1e-6, 1);
  if (!(low < high)) return within(high, 0.5 * high, 1.5 * high);
  return within(median(x), low / 2, 2 * high);
}

}  // namespace

void put_default_parameters(ResponseModel& model, const ResponseData& data) {
  const std::vector<double>& t = data.time;
  const std::vector<double>& y = data.conc;
  const double span = t.size() > 1 ? t.back() - t.front() : 1;
  const double step = t.size() > 1 ? stats::median_interval(t) : 1;
  double low = 0, high = 1;
  if (!y.empty()) {
    const auto [mn, mx] = std::minmax_element(y.begin(), y.end());
    low = std::max(0.0, *mn);
    high = std::max(*mx, low);
  }
  const double range = high > low ? high - low : std::max(1.0, high);
  const double rate = std::numbers::ln2 / kStartHalfLife;
  for (std::size_t i = 0; i < model.inputs.size(); ++i) {
    InputModel& in = model.inputs[i];
    in.delay = within(span / 16, 0, span / 4);
    in.width = in.spreading == Spreading::kNone ? held(0)
                                                : within(2 * step, step / 2, span / 8);
    in.efficacy = model.combination == Combination::kProduct && i > 0
                      ? held(1)
                      : within(2 * range * rate, 0, 20 * range * rate);
    in.ec50 = potency(i < data.inputs.size() ? data.inputs[i].value : std::vector<double>{});
    in.hill = within(1, 0.5, 5);
  }
  // Basal up to the secretion that holds the highest level at the fastest elimination.
  model.basal = within(low * rate, 0, std::max(high, range) * std::numbers::ln2 / kShortestHalfLife);
  const double longest = std::max(kShortestHalfLife, std::min(120.0, span));
  model.half_life = within(kStartHalfLife, kShortestHalfLife, longest);
  if (model.eliminations == 2) {
    model.half_life_2 = within(180, 60, 600);
    model.fraction_2 = within(0.5, 0, 1);
  } else {
    model.half_life_2 = held(180);
    model.fraction_2 = held(0);
  }
  model.initial = within(y.empty() ? 0 : y.front(), 0, 2 * std::max(high, range));
}

}  // namespace tidemark::feedback
