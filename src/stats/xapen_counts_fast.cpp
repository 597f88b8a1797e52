#include <algorithm>
#include <limits>

#include "stats/sorted_partners.h"
#include "stats/xapen_counts.h"

namespace tidemark::stats {

namespace {

// Adds every match at m = 1 and 2 to `hits` by its lag: the partners of a(i) at m = 1 are
// its run of B's sorted values; those whose next value, kept beside them in sorted order
// (NaN past the end of B), is within r of a(i+1) match at m = 2 as well. The counts of
// lag j − i gather at j + (N − 1 − i) of two 32-bit rows first (a lag holds at most N
// matches), then go to the table.
void add_hits(std::span<const double> a, std::span<const double> b, double r, HitTable& hits) {
  const std::size_t n = std::min(a.size(), b.size());
  if (n == 0) return;
  const SortedPartners<double> sorted = sort_partners(b.first(n), {});
  std::vector<std::int32_t> lo;
  std::vector<std::int32_t> hi;
  partner_runs(sorted, sort_partners(a.first(n), {}), r, lo, hi);
  constexpr double kBeyond = std::numeric_limits<double>::quiet_NaN();
  std::vector<double> next(sorted.index.size());
  for (std::size_t p = 0; p < next.size(); ++p) {
    const std::size_t j = static_cast<std::size_t>(sorted.index[p]);
    next[p] = j + 1 < n ? b[j + 1] : kBeyond;
  }
  std::vector<std::int32_t> first(2 * n - 1, 0);
  std::vector<std::int32_t> second(2 * n - 1, 0);
  for (std::size_t i = 0; i < n; ++i) {
    std::int32_t* by_lag1 = first.data() + (n - 1 - i);
    std::int32_t* by_lag2 = second.data() + (n - 1 - i);
    const double a1 = i + 1 < n ? a[i + 1] : kBeyond;
    for (std::int32_t p = lo[i]; p < hi[i]; ++p) {
      const std::int32_t j = sorted.index[p];
      ++by_lag1[j];
      by_lag2[j] += cross_within(a1, next[p], r) ? 1 : 0;
    }
  }
  // The table is sized for at least N points: lag d sits at row d + hits.n − 1.
  const std::size_t shift = static_cast<std::size_t>(hits.n) - n;
  for (std::size_t k = 0; k < first.size(); ++k) {
    hits.counts[0][k + shift] += first[k];
    hits.counts[1][k + shift] += second[k];
  }
}

}  // namespace

CrossCounts cross_counts_fast(std::span<const double> a, std::span<const double> b, double r,
                              HitTable* hits, MatchMethod method) {
  const std::size_t n = std::min(a.size(), b.size());
  BoxCounts counts = count_template_matches<double>(a.first(n), b.first(n), {}, {}, r, method);
  CrossCounts result;
  for (int m = 0; m < kXApEnLengths; ++m) {
    result.counts[m].assign(counts[m].begin(), counts[m].end());
  }
  if (hits) add_hits(a, b, r, *hits);
  return result;
}

}  // namespace tidemark::stats
