#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "stats/xapen_counts.h"

namespace tidemark::stats {

namespace {

// B's templates in ascending order of their first value, with the next two values of
// each beside it (NaN past the end of B, so that the test |x - y| <= r fails there for
// every r and the loops need no branch).
struct SortedTemplates {
  std::vector<int> start;
  std::vector<double> first, second, third;
};

SortedTemplates sort_templates(std::span<const double> b, int n) {
  constexpr double kBeyond = std::numeric_limits<double>::quiet_NaN();
  SortedTemplates s;
  s.start.resize(n);
  std::iota(s.start.begin(), s.start.end(), 0);
  std::stable_sort(s.start.begin(), s.start.end(), [&](int x, int y) { return b[x] < b[y]; });
  s.first.resize(n);
  s.second.resize(n);
  s.third.resize(n);
  for (int k = 0; k < n; ++k) {
    const int j = s.start[k];
    s.first[k] = b[j];
    s.second[k] = j + 1 < n ? b[j + 1] : kBeyond;
    s.third[k] = j + 2 < n ? b[j + 2] : kBeyond;
  }
  return s;
}

}  // namespace

CrossCounts cross_counts_fast(std::span<const double> a, std::span<const double> b, double r,
                              HitTable* hits) {
  const int n = static_cast<int>(std::min(a.size(), b.size()));
  CrossCounts result;
  for (int m = 1; m <= kXApEnLengths; ++m) {
    if (n - m + 1 > 0) result.counts[m - 1].assign(n - m + 1, 0);
  }
  if (n == 0) return result;
  const SortedTemplates s = sort_templates(b, n);
  for (int i = 0; i < n; ++i) {
    const double x0 = a[i];
    // fl(x0 - y) falls as y rises, so each half of |x0 - y| <= r holds on one side of a
    // single cut in the sorted values: the partners form the run [low, high).
    const auto low = std::partition_point(s.first.begin(), s.first.end(),
                                          [&](double y) { return !(x0 - y <= r); });
    const auto high =
        std::partition_point(low, s.first.end(), [&](double y) { return x0 - y >= -r; });
    const int lo = static_cast<int>(low - s.first.begin());
    const int hi = static_cast<int>(high - s.first.begin());
    result.counts[0][i] = hi - lo;
    if (hits) {
      for (int k = lo; k < hi; ++k) hits->add(0, s.start[k] - i);
    }
    if (i + 1 >= n) continue;
    // A B template past the end of B carries NaN and never matches; an A template
    // past the end of A is not counted.
    const double x1 = a[i + 1];
    const double x2 = i + 2 < n ? a[i + 2] : 0.0;
    int c2 = 0, c3 = 0;
    for (int k = lo; k < hi; ++k) {
      const bool second = std::abs(x1 - s.second[k]) <= r;
      const bool third = std::abs(x2 - s.third[k]) <= r;
      c2 += second;
      c3 += second & third;
    }
    result.counts[1][i] = c2;
    if (i + 2 < n) result.counts[2][i] = c3;
    if (hits) {
      for (int k = lo; k < hi; ++k) {
        if (std::abs(x1 - s.second[k]) <= r) hits->add(1, s.start[k] - i);
      }
    }
  }
  return result;
}

}  // namespace tidemark::stats
