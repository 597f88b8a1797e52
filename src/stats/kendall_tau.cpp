#include "stats/kendall_tau.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <numeric>
#include <vector>

namespace tidemark::stats {
namespace {

long long pairs_of(long long run) {
  return run * (run - 1) / 2;
}

// Σ t (t − 1) / 2 over the runs of equal neighbours of `v` under `same`.
template <typename Same>
long long tied_pairs(std::size_t n, Same same) {
  long long total = 0;
  long long run = 1;
  for (std::size_t i = 1; i <= n; ++i) {
    if (i < n && same(i - 1, i)) {
      ++run;
    } else {
      total += pairs_of(run);
      run = 1;
    }
  }
  return total;
}

// Sorts v[lo, hi) ascending by merging, and returns the number of pairs i < j with
// v[i] > v[j] that it put in order.
long long merge_exchanges(std::vector<double>& v, std::vector<double>& scratch, std::size_t lo,
                          std::size_t hi) {
  if (hi - lo < 2) return 0;
  const std::size_t mid = lo + (hi - lo) / 2;
  long long exchanges = merge_exchanges(v, scratch, lo, mid) + merge_exchanges(v, scratch, mid, hi);
  std::size_t i = lo, j = mid, k = lo;
  while (i < mid && j < hi) {
    if (v[j] < v[i]) {
      exchanges += static_cast<long long>(mid - i);
      scratch[k++] = v[j++];
    } else {
      scratch[k++] = v[i++];
    }
  }
  while (i < mid) scratch[k++] = v[i++];
  while (j < hi) scratch[k++] = v[j++];
  std::copy(scratch.begin() + static_cast<long>(lo), scratch.begin() + static_cast<long>(hi),
            v.begin() + static_cast<long>(lo));
  return exchanges;
}

}  // namespace

KendallCounts kendall_counts(std::span<const double> a, std::span<const double> b) {
  assert(a.size() == b.size());
  const std::size_t n = a.size();
  std::vector<std::size_t> order(n);
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(), [&](std::size_t i, std::size_t j) {
    return a[i] < a[j] || (a[i] == a[j] && b[i] < b[j]);
  });
  const long long ties_a =
      tied_pairs(n, [&](std::size_t i, std::size_t j) { return a[order[i]] == a[order[j]]; });
  const long long joint_ties = tied_pairs(n, [&](std::size_t i, std::size_t j) {
    return a[order[i]] == a[order[j]] && b[order[i]] == b[order[j]];
  });
  std::vector<double> by_b(n), scratch(n);
  for (std::size_t i = 0; i < n; ++i) by_b[i] = b[order[i]];
  const long long discordant = merge_exchanges(by_b, scratch, 0, n);
  const long long ties_b =
      tied_pairs(n, [&](std::size_t i, std::size_t j) { return by_b[i] == by_b[j]; });
  const long long all = pairs_of(static_cast<long long>(n));
  const long long concordant = all - ties_a - ties_b + joint_ties - discordant;
  return {all - ties_a, all - ties_b, concordant - discordant};
}

KendallResult kendall_tau(std::span<const double> a, std::span<const double> b) {
  KendallResult out;
  out.counts = kendall_counts(a, b);
  const auto& c = out.counts;
  if (c.na > 0 && c.nb > 0)
    out.tau = static_cast<float>(c.score) /
              std::sqrt(static_cast<float>(c.na) * static_cast<float>(c.nb));
  const double n = static_cast<double>(a.size());
  if (a.size() >= 2) out.standard_error = std::sqrt((4 * n + 10) / (9 * n * (n - 1)));
  return out;
}

}  // namespace tidemark::stats
