#include <algorithm>

#include "stats/xapen_counts.h"

namespace tidemark::stats {

HitTable::HitTable(int points) : n(points) {
  const std::size_t rows = points > 0 ? static_cast<std::size_t>(2 * points - 1) : 0;
  for (auto& column : counts) column.assign(rows, 0);
}

CrossCounts cross_counts_direct(std::span<const double> a, std::span<const double> b, double r,
                                HitTable* hits) {
  const int n = static_cast<int>(std::min(a.size(), b.size()));
  CrossCounts result;
  for (int m = 1; m <= kXApEnLengths; ++m) {
    const int k = n - m + 1;
    if (k <= 0) continue;
    auto& counts = result.counts[m - 1];
    counts.assign(k, 0);
    for (int i = 0; i < k; ++i) {
      for (int j = 0; j < k; ++j) {
        bool match = true;
        for (int e = 0; e < m && match; ++e) match = cross_within(a[i + e], b[j + e], r);
        if (!match) continue;
        ++counts[i];
        if (hits && m <= 2) hits->add(m - 1, j - i);
      }
    }
  }
  return result;
}

}  // namespace tidemark::stats
