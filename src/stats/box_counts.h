#pragma once
// Template matches of (cross-)approximate entropy counted in rank space, without
// examining pairs.
//
// The partner series is ranked: rank[t] is the position of its point t among its sorted
// values (a permutation of 0 .. U-1 over the U points that can match at all), or -1 for a
// point that never matches. Each point t of the query series has a run [lo[t], hi[t]) of
// positions: the partners within r of it (empty for a point that is never a template).
// Then, for embedding length m, the number of partner templates j of query template i is
//   c_m(i) = #{ j : lo[i+k] <= rank[j+k] < hi[i+k] for every k < m },
// j = 0 .. size(rank) - m, i = 0 .. size(lo) - m: the partner templates seen as points
// (rank[j], .., rank[j+m-1]) that fall in the box of the runs of template i.
//
//   m = 1: the run's length.
//   m = 2: one sweep over the first coordinate with a Fenwick tree over the second,
//          O(N log N).
//   m = 3: divide and conquer over the first coordinate (CDQ), each level the m = 2
//          sweep over the second and third coordinates, O(N log^2 N).
// Memory O(N). The counts are exact: they equal those of the pairwise test from which
// the ranks and runs were made.
#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace tidemark::stats {

// counts[m - 1][i] = c_m(i) for i = 0 .. size(lo) - m (empty when size(lo) < m).
using BoxCounts = std::array<std::vector<std::int32_t>, 3>;

// lo and hi have the same length; every run lies within 0 .. U, U the ranked points.
BoxCounts count_in_boxes(std::span<const std::int32_t> rank, std::span<const std::int32_t> lo,
                         std::span<const std::int32_t> hi);

}  // namespace tidemark::stats
