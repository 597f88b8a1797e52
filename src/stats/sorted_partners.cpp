#include "stats/sorted_partners.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tidemark::stats {
namespace {

bool usable_point(std::span<const std::uint8_t> usable, std::size_t t) {
  return usable.empty() || usable[t] != 0;
}

// The first position of `values` where `holds` is false, `holds` being true on a
// prefix: a binary search whose step is a conditional move rather than a branch.
template <typename T, typename Predicate>
std::size_t first_failing(const std::vector<T>& values, std::size_t from, Predicate holds) {
  std::size_t base = from;
  std::size_t length = values.size() - from;
  if (length == 0) return base;
  while (length > 1) {
    const std::size_t half = length / 2;
    base = holds(values[base + half]) ? base + half : base;
    length -= half;
  }
  return base + (holds(values[base]) ? 1 : 0);
}

}  // namespace

template <typename T>
SortedPartners<T> sort_partners(std::span<const T> x, std::span<const std::uint8_t> usable) {
  std::vector<std::pair<T, std::int32_t>> keyed;
  for (std::size_t t = 0; t < x.size(); ++t) {
    if (usable_point(usable, t) && !std::isnan(x[t])) {
      keyed.emplace_back(x[t], static_cast<std::int32_t>(t));
    }
  }
  std::sort(keyed.begin(), keyed.end());
  SortedPartners<T> sorted;
  sorted.rank.assign(x.size(), -1);
  sorted.value.reserve(keyed.size());
  sorted.index.reserve(keyed.size());
  for (const auto& [value, t] : keyed) {
    sorted.rank[t] = static_cast<std::int32_t>(sorted.value.size());
    sorted.value.push_back(value);
    sorted.index.push_back(t);
  }
  return sorted;
}

template <typename T>
void partner_runs(const SortedPartners<T>& partners, std::span<const T> queries,
                  std::span<const std::uint8_t> usable, T r, std::vector<std::int32_t>& lo,
                  std::vector<std::int32_t>& hi) {
  lo.assign(queries.size(), 0);
  hi.assign(queries.size(), 0);
  for (std::size_t t = 0; t < queries.size(); ++t) {
    if (!usable_point(usable, t)) continue;
    const T a = queries[t];
    // Below the run a − y ≤ r fails; inside it a − y ≥ −r holds; a NaN a fails both.
    // a − y is NaN also where a = y = ±∞: such a y is no partner, and it lies below the
    // run when a = −∞, above it when a = +∞.
    const std::size_t low = first_failing(partners.value, 0, [&](T y) {
      const T d = a - y;
      return !(d <= r) && !(std::isnan(d) && a > 0);
    });
    const std::size_t high = first_failing(partners.value, low, [&](T y) { return a - y >= -r; });
    lo[t] = static_cast<std::int32_t>(low);
    hi[t] = static_cast<std::int32_t>(high);
  }
}

template SortedPartners<float> sort_partners(std::span<const float>, std::span<const std::uint8_t>);
template SortedPartners<double> sort_partners(std::span<const double>,
                                              std::span<const std::uint8_t>);
template void partner_runs(const SortedPartners<float>&, std::span<const float>,
                           std::span<const std::uint8_t>, float, std::vector<std::int32_t>&,
                           std::vector<std::int32_t>&);
template void partner_runs(const SortedPartners<double>&, std::span<const double>,
                           std::span<const std::uint8_t>, double, std::vector<std::int32_t>&,
                           std::vector<std::int32_t>&);

}  // namespace tidemark::stats
