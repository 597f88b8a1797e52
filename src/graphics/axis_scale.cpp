#include "graphics/axis_scale.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "core/missing.h"

namespace tidemark::graphics {

namespace {

constexpr double kLargest = 1e300;
constexpr double kPad = 0.04;

// The smallest number of decimals that writes `step` exactly enough (at most 15).
int decimals_for(double step) {
  for (int d = 0; d < 15; ++d) {
    const double scaled = step * std::pow(10.0, d);
    if (std::abs(scaled - std::round(scaled)) <= 1e-6 * scaled) return d;
  }
  return 15;
}

// The exponent written with superscript digits: "⁻¹²".
std::string superscript(int n) {
  static constexpr const char* kDigits[] = {"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
  std::string out = n < 0 ? "⁻" : "";
  for (char c : std::to_string(std::abs(n))) out += kDigits[c - '0'];
  return out;
}

// 1, 2 or 5 times a power of ten, the first of these at least raw / 1.5.
double nice_step(double raw) {
  const double magnitude = std::pow(10.0, std::floor(std::log10(raw)));
  const double norm = raw / magnitude;
  const double nice = norm < 1.5 ? 1 : norm < 3.5 ? 2 : norm < 7.5 ? 5 : 10;
  return nice * magnitude;
}

// The step below `step` in the sequence 1, 2, 5 times a power of ten.
double smaller_nice_step(double step) {
  const double magnitude = std::pow(10.0, std::floor(std::log10(step) + 1e-9));
  const double norm = std::round(step / magnitude);
  return norm >= 5 ? 2 * magnitude : norm >= 2 ? magnitude : 0.5 * magnitude;
}

// The number of multiples of `step` in [low, high].
double multiples_within(double low, double high, double step) {
  return std::floor(high / step + 1e-9) - std::ceil(low / step - 1e-9) + 1;
}

// The automatic step: aims at max_labels / 1.5 intervals (1 to 6). When that leaves
// fewer than three labels, finer steps are taken as long as the labels stay at least
// kCrowding times closer than max_labels asks.
double automatic_step(double low, double high, double max_labels) {
  const double span = high - low;
  double step = nice_step(span / std::clamp(max_labels / 1.5, 1.0, 6.0));
  const double finest = span / (kCrowding * max_labels);
  for (int i = 0; i < 8 && multiples_within(low, high, step) < 3; ++i) {
    const double finer = smaller_nice_step(step);
    if (!(finer >= finest)) break;
    step = finer;
  }
  return step;
}

void linear_ticks(AxisScale& a, std::optional<double> given_step, double max_labels) {
  const double span = a.high - a.low;
  double step = given_step.value_or(0);
  if (!(step > 0) || span / step > kMaxTicks) step = automatic_step(a.low, a.high, max_labels);
  const double largest = std::max(std::abs(a.low), std::abs(a.high));
  const double first = std::ceil(a.low / step - 1e-9);
  for (int i = 0; i < kMaxTicks; ++i) {
    double v = (first + i) * step;
    if (v > a.high + 1e-9 * span) break;
    if (std::abs(v) < 1e-9 * step) v = 0;
    a.ticks.push_back({v, tick_label(v, step, largest), true});
  }
}

// The label of m×10^d on a log axis: plain for 10^-3 .. 10^4, else "m×10ⁿ" ("10ⁿ" for
// m = 1).
std::string log_label(int m, int d) {
  if (d >= -3 && d <= 4) return fmt::format("{:.{}f}", m * std::pow(10.0, d), std::max(0, -d));
  if (m == 1) return "10" + superscript(d);
  return fmt::format("{}×10{}", m, superscript(d));
}

void log_ticks(AxisScale& a, double max_labels) {
  const double llo = std::log10(a.low), lhi = std::log10(a.high);
  const double decades = lhi - llo;
  const int first = static_cast<int>(std::floor(llo)), last = static_cast<int>(std::ceil(lhi));
  const double labels = std::clamp(max_labels, 1.0, 8.0);
  const int every = std::max(1, static_cast<int>(std::ceil((last - first + 1) / labels)));
  const bool minors = decades <= 6, labelled_2_5 = decades < 3 && max_labels >= 3 * decades + 1;
  for (int d = first; d <= last && static_cast<int>(a.ticks.size()) < kMaxTicks; ++d) {
    for (int m = 1; m <= (minors ? 9 : 1); ++m) {
      const double v = m * std::pow(10.0, d);
      if (v < a.low * (1 - 1e-9) || v > a.high * (1 + 1e-9)) continue;
      const bool labelled = m == 1 ? d % every == 0 : labelled_2_5 && (m == 2 || m == 5);
      a.ticks.push_back({v, labelled ? log_label(m, d) : std::string(), m == 1});
    }
  }
}

// Raises the top of `a` so that at least the fraction `headroom` (at most a half) of the
// axis lies above `top`: top <= high - h (high - low), i.e. high >= (top - h low) / (1 - h),
// in log10 of the values on a log axis.
void keep_free_above(AxisScale& a, double top, double headroom) {
  const double h = std::clamp(headroom, 0.0, 0.5);
  if (!(h > 0)) return;
  const bool log = a.scale == Scale::kLog;
  const auto to_axis = [log](double v) { return log ? std::log10(v) : v; };
  const double high = (to_axis(top) - h * to_axis(a.low)) / (1 - h);
  if (high > to_axis(a.high)) a.high = log ? std::pow(10.0, high) : high;
}

}  // namespace

bool drawable_on(Scale scale, double v) {
  if (!std::isfinite(v) || core::is_missing(v) || std::abs(v) > kLargest) return false;
  return scale == Scale::kLinear || v > 0;
}

void Extent::add(double v) {
  if (!drawable(v)) return;
  if (empty()) {
    low_ = high_ = v;
  } else {
    low_ = std::min(low_, v);
    high_ = std::max(high_, v);
  }
}

double AxisScale::fraction(double v) const {
  if (scale == Scale::kLog)
    return (std::log10(v) - std::log10(low)) / (std::log10(high) - std::log10(low));
  return (v - low) / (high - low);
}

std::string tick_label(double v, double step, double largest) {
  if (v == 0) return "0";
  if (largest >= 1e-4 && largest < 1e6) return fmt::format("{:.{}f}", v, decimals_for(step));
  const int e = static_cast<int>(std::floor(std::log10(largest)));
  const double scale = std::pow(10.0, e);
  return fmt::format("{:.{}f}×10{}", v / scale, decimals_for(step / scale), superscript(e));
}

AxisScale make_axis_scale(const AxisSpec& axis_spec, const Extent& data, double max_labels,
                          double headroom) {
  AxisScale a;
  a.scale = axis_spec.scale;
  Extent fixed(axis_spec.scale);
  if (axis_spec.low && axis_spec.high) {
    fixed.add(*axis_spec.low);
    fixed.add(*axis_spec.high);
  }
  const bool automatic =
      fixed.empty() || !(fixed.low() < fixed.high()) || !std::isfinite(fixed.high() - fixed.low());
  if (!automatic) {
    a.low = *axis_spec.low;
    a.high = *axis_spec.high;
  } else if (axis_spec.scale == Scale::kLog) {
    a.low = data.empty() ? 1 : std::pow(10.0, std::floor(std::log10(data.low())));
    a.high = data.empty() ? 10 : std::pow(10.0, std::ceil(std::log10(data.high())));
    if (a.high <= a.low) a.high = a.low * 10;
  } else {
    a.low = data.empty() ? 0 : data.low();
    a.high = data.empty() ? 1 : data.high();
    const double size = std::max(std::abs(a.low), std::abs(a.high));
    if (a.high - a.low <= 1e-9 * size || a.high == a.low) {
      const double widen = size > 0 ? 0.1 * size : 1;
      a.low -= widen;
      a.high += widen;
    } else {
      const double pad = kPad * (a.high - a.low);
      a.low -= pad;
      a.high += pad;
    }
  }
  if (automatic && !data.empty()) keep_free_above(a, data.high(), headroom);
  if (a.scale == Scale::kLog) {
    log_ticks(a, max_labels);
  } else {
    linear_ticks(a, axis_spec.tick_step, max_labels);
  }
  return a;
}

}  // namespace tidemark::graphics
