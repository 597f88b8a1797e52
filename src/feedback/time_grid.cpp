#include "feedback/time_grid.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <fmt/format.h>

namespace tidemark::feedback {
namespace {

// The median of the positive differences of increasing times; 0 when there are none.
double median_interval(const std::vector<double>& time) {
  std::vector<double> d;
  for (std::size_t j = 1; j < time.size(); ++j) {
    if (time[j] > time[j - 1]) d.push_back(time[j] - time[j - 1]);
  }
  if (d.empty()) return 0;
  const auto mid = d.begin() + static_cast<std::ptrdiff_t>(d.size() / 2);
  std::nth_element(d.begin(), mid, d.end());
  return *mid;
}

}  // namespace

TimeGrid make_time_grid(const ResponseData& data) {
  TimeGrid grid;
  grid.first = data.time.front();
  const double span = data.time.back() - data.time.front();
  double interval = median_interval(data.time);
  for (const Series& input : data.inputs) {
    const double d = median_interval(input.time);
    if (d > 0 && (interval == 0 || d < interval)) interval = d;
  }
  if (span <= 0 || interval <= 0) return grid;
  grid.step = interval / kGridSubdivisions;
  double steps = std::ceil(span / grid.step - 1e-9);
  if (steps + 1 > static_cast<double>(kMaxGridPoints)) {
    steps = static_cast<double>(kMaxGridPoints - 1);
    grid.step = span / steps;
  }
  grid.count = static_cast<std::size_t>(steps) + 1;
  return grid;
}

std::string coverage_gap(const ResponseData& data, std::size_t i, double delay_low,
                         double delay_high) {
  const Series& input = data.inputs[i];
  const double need_first = data.time.front() - delay_high;
  const double need_last = data.time.back() - delay_low;
  const double slack = 1e-9 * std::max({1.0, std::abs(need_first), std::abs(need_last)});
  if (need_first >= input.time.front() - slack && need_last <= input.time.back() + slack) {
    return {};
  }
  return fmt::format(
      "input {} does not cover the times {:g} to {:g} (the output's times less the delay "
      "{:g} .. {:g}): its samples run from {:g} to {:g}",
      i + 1, need_first, need_last, delay_low, delay_high, input.time.front(),
      input.time.back());
}

}  // namespace tidemark::feedback
