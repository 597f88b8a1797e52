#include <algorithm>

#include "stats/sorted_partners.h"
#include "stats/xapen_counts.h"

namespace tidemark::stats {

namespace {

// Adds every match at m = 1 and 2 to `hits` by its lag: the partners of a(i) at m = 1 are
// its run of B's sorted values; those whose next value is within r of a(i+1) match at
// m = 2 as well.
void add_hits(std::span<const double> a, std::span<const double> b, double r, HitTable& hits) {
  const std::size_t n = std::min(a.size(), b.size());
  const SortedPartners<double> sorted = sort_partners(b.first(n), {});
  std::vector<std::int32_t> lo;
  std::vector<std::int32_t> hi;
  partner_runs(sorted, sort_partners(a.first(n), {}), r, lo, hi);
  for (std::size_t i = 0; i < n; ++i) {
    const int from = static_cast<int>(i);
    for (std::int32_t p = lo[i]; p < hi[i]; ++p) {
      const std::size_t j = static_cast<std::size_t>(sorted.index[p]);
      const int lag = static_cast<int>(j) - from;
      hits.add(0, lag);
      if (i + 1 < n && j + 1 < n && cross_within(a[i + 1], b[j + 1], r)) hits.add(1, lag);
    }
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
