#include "stats/sorted_partners.h"

#include <algorithm>
#include <cmath>

#include "stats/radix_order.h"

namespace tidemark::stats {
namespace {

bool usable_point(std::span<const std::uint8_t> usable, std::size_t t) {
  return usable.empty() || usable[t] != 0;
}

}  // namespace

template <typename T>
SortedPartners<T> sort_partners(std::span<const T> x, std::span<const std::uint8_t> usable) {
  SortedPartners<T> sorted;
  for (std::size_t t = 0; t < x.size(); ++t) {
    if (usable_point(usable, t) && !std::isnan(x[t])) {
      sorted.index.push_back(static_cast<std::int32_t>(t));
    }
  }
  sort_by_value(x, sorted.index);
  sorted.rank.assign(x.size(), -1);
  sorted.value.resize(sorted.index.size());
  for (std::size_t p = 0; p < sorted.index.size(); ++p) {
    const std::size_t t = static_cast<std::size_t>(sorted.index[p]);
    sorted.rank[t] = static_cast<std::int32_t>(p);
    sorted.value[p] = x[t];
  }
  return sorted;
}

template <typename T>
void partner_runs(const SortedPartners<T>& partners, const SortedPartners<T>& queries, T r,
                  std::vector<std::int32_t>& lo, std::vector<std::int32_t>& hi) {
  lo.assign(queries.rank.size(), 0);
  hi.assign(queries.rank.size(), 0);
  const std::vector<T>& values = partners.value;
  // Below the run a − y ≤ r fails; inside it a − y ≥ −r holds. For finite a in ascending
  // order both ends only move up, so one sweep finds every run.
  std::size_t low = 0;
  std::size_t high = 0;
  for (std::size_t q = 0; q < queries.value.size(); ++q) {
    const T a = queries.value[q];
    const std::size_t t = static_cast<std::size_t>(queries.index[q]);
    if (std::isfinite(a)) {
      while (low < values.size() && !(a - values[low] <= r)) ++low;
      high = std::max(high, low);
      while (high < values.size() && a - values[high] >= -r) ++high;
      lo[t] = static_cast<std::int32_t>(low);
      hi[t] = static_cast<std::int32_t>(high);
      continue;
    }
    // a = ±∞: a − y is NaN where y = a, and such a y is no partner; it lies below the run
    // when a = −∞, above it when a = +∞.
    const auto below = std::partition_point(values.begin(), values.end(), [&](T y) {
      const T d = a - y;
      return !(d <= r) && !(std::isnan(d) && a > 0);
    });
    const auto above = std::partition_point(below, values.end(), [&](T y) { return a - y >= -r; });
    lo[t] = static_cast<std::int32_t>(below - values.begin());
    hi[t] = static_cast<std::int32_t>(above - values.begin());
  }
}

template SortedPartners<float> sort_partners(std::span<const float>, std::span<const std::uint8_t>);
template SortedPartners<double> sort_partners(std::span<const double>,
                                              std::span<const std::uint8_t>);
template void partner_runs(const SortedPartners<float>&, const SortedPartners<float>&, float,
                           std::vector<std::int32_t>&, std::vector<std::int32_t>&);
template void partner_runs(const SortedPartners<double>&, const SortedPartners<double>&, double,
                           std::vector<std::int32_t>&, std::vector<std::int32_t>&);

}  // namespace tidemark::stats
