#pragma once
// The partner values of (cross-)approximate entropy in rank space (stats/box_counts.h):
// where each partner point stands among the sorted values, and for each query value the
// run of sorted positions within r of it.
//
// Because rounding is monotone, fl(a − y) never rises as y rises, so the values y with
// |a − y| ≤ r form one contiguous run of the sorted values. Its ends are found by binary
// search with that very test, in the arithmetic of T (a − y > r below the run, a − y < −r
// above it), never with a ± r, so a pair lies in a run exactly when the pairwise test
// passes.
//
//   const SortedPartners<double> b_sorted = sort_partners<double>(b, {});
//   partner_runs<double>(b_sorted, a, {}, r, lo, hi);   // then count_in_boxes(b_sorted.rank, lo,
//   hi)
#include <cstdint>
#include <span>
#include <vector>

namespace tidemark::stats {

template <typename T>
struct SortedPartners {
  std::vector<T> value;             // the values that can match, ascending
  std::vector<std::int32_t> index;  // index[p]: the point at position p
  std::vector<std::int32_t> rank;   // rank[t]: the position of point t, -1 if it never matches
};

// Sorts the usable points of x (`usable` empty: every point). A NaN value matches
// nothing, not even itself, and is left out with the unusable points; infinities sort
// at the ends and match by the same test as any other value (∞ − ∞ is NaN: no match).
template <typename T>
SortedPartners<T> sort_partners(std::span<const T> x, std::span<const std::uint8_t> usable);

// For each point t of the query series, sorted the same way: [lo[t], hi[t]) holds the
// positions p with |a − partners.value[p]| ≤ r, a the value of point t; empty for a
// point left out of `queries` (unusable or NaN). One sweep over the finite values, a
// binary search for each infinite one.
template <typename T>
void partner_runs(const SortedPartners<T>& partners, const SortedPartners<T>& queries, T r,
                  std::vector<std::int32_t>& lo, std::vector<std::int32_t>& hi);

}  // namespace tidemark::stats
