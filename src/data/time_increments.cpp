#include "data/time_increments.h"

#include <algorithm>
#include <vector>

namespace tidemark::data {

IncrementStats increment_stats(std::span<const float> times) {
  std::vector<double> d(times.size() - 1);
  for (std::size_t i = 1; i < times.size(); ++i) {
    d[i - 1] = double(times[i]) - double(times[i - 1]);
  }
  const auto [low, high] = std::minmax_element(d.begin(), d.end());
  IncrementStats stats{*low, 0, *high};

  // Only the middle of the sorted increments matters: partition around it instead of
  // sorting the whole list.
  const auto upper_middle = d.begin() + std::ptrdiff_t(d.size() / 2);
  std::nth_element(d.begin(), upper_middle, d.end());
  stats.median = *upper_middle;
  if (d.size() % 2 == 0) {
    stats.median = 0.5 * (*std::max_element(d.begin(), upper_middle) + *upper_middle);
  }
  return stats;
}

}  // namespace tidemark::data
