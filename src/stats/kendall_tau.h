#pragma once
// Kendall's rank correlation tau of paired values, with ties counted the way the
// Correlation mode's listing reports them.
#include <optional>
#include <span>

namespace tidemark::stats {

// The pair counts over all i < j, with dx = a(i) − a(j) and dy = b(i) − b(j):
//   dx × dy ≠ 0:  na and nb rise by one; score rises by one when dx × dy > 0 and falls
//                 by one when dx × dy < 0;
//   otherwise:    na rises when dx ≠ 0, nb rises when dy ≠ 0 (a tie in one series
//                 counts only for the other).
struct KendallCounts {
  long long na = 0;
  long long nb = 0;
  long long score = 0;
};

struct KendallResult {
  KendallCounts counts;
  // tau = score / sqrt(na × nb), in single precision; undefined when na × nb = 0.
  std::optional<float> tau;
  // S.E. = sqrt((4n + 10) / (9n (n − 1))); undefined for n < 2.
  std::optional<double> standard_error;
};

// The counts in O(n log n) (W. R. Knight, JASA 61, 1966): sort the pairs by (a, b),
// count the ties in a and the joint ties, count the exchanges a merge sort by b makes
// (the discordant pairs), and count the ties in b. Identical to the pair loop for
// finite values. `a` and `b` have the same length.
KendallCounts kendall_counts(std::span<const double> a, std::span<const double> b);

// Tau and its standard error of the n = a.size() pairs (a(i), b(i)).
KendallResult kendall_tau(std::span<const double> a, std::span<const double> b);

}  // namespace tidemark::stats
