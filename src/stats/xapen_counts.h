#pragma once
// Match counts of cross-approximate entropy. For two series a(0..N-1) and b(0..N-1) and
// embedding length m (1, 2, 3) there are K = N - m + 1 templates in each; B template j
// matches A template i when the distance
//   d(i, j) = max over k = 0 .. m-1 of |a(i+k) - b(j+k)|
// is not greater than r. c_m(i) is the number of B templates that match A template i.
//
//   CrossCounts c = cross_counts_fast(a, b, 0.2);
//   c.counts[1][i]   // c_2(i), i = 0 .. N-2
//
// Two methods give identical counts: the direct one examines every pair (N^2 work per
// m); the fast one counts in rank space from B's values sorted once
// (stats/template_matches.h). A NaN difference never matches.
#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "stats/template_matches.h"

namespace tidemark::stats {

inline constexpr int kXApEnLengths = 3;  // m = 1, 2, 3

// Matches by lag d = j - i for m = 1 (column 0) and m = 2 (column 1); row d + N - 1
// holds lag d, d = -(N-1) .. N-1.
struct HitTable {
  int n = 0;
  std::array<std::vector<std::int64_t>, 2> counts;

  explicit HitTable(int points = 0);
  std::int64_t at(int m_index, int lag) const { return counts[m_index][lag + n - 1]; }
  void add(int m_index, int lag) { ++counts[m_index][lag + n - 1]; }
};

// counts[m - 1][i] = c_m(i) for i = 0 .. N - m (empty when N < m).
struct CrossCounts {
  std::array<std::vector<int>, kXApEnLengths> counts;
};

// Every pair examined. When `hits` is given (sized for N), each match at m = 1 and 2
// raises the count of its lag.
CrossCounts cross_counts_direct(std::span<const double> a, std::span<const double> b, double r,
                                HitTable* hits = nullptr);

// The one test of both methods: |x - y| <= r, false when x - y is NaN.
inline bool cross_within(double x, double y, double r) {
  const double d = x - y;
  return d <= r && d >= -r;
}

// The same counts (and hits) through B sorted by value: O(N log N) plus the length of
// the partner runs, or O(N log^2 N), as `method` picks. The hits are the matches
// themselves, enumerated over the m = 1 runs. Memory linear in N.
CrossCounts cross_counts_fast(std::span<const double> a, std::span<const double> b, double r,
                              HitTable* hits = nullptr,
                              MatchMethod method = MatchMethod::kAdaptive);

}  // namespace tidemark::stats
