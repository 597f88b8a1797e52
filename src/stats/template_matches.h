#pragma once
// Template match counts shared by approximate entropy (one series against itself) and
// cross-approximate entropy (series A against series B), for m = 1, 2, 3 at once.
//
// Query template i of length m is query[i .. i+m-1]; partner template j is
// partner[j .. j+m-1]. A template holding an unusable point is neither a template nor a
// partner (its count is 0). j matches i when |query[i+k] − partner[j+k]| ≤ r for every
// k < m, the subtraction and the test in the arithmetic of T; a NaN difference never
// matches. The counts equal those of a test of every pair.
//
//   BoxCounts c = count_template_matches<double>(a, b, {}, {}, 0.2);
//   c[1][i]   // partner templates of length 2 within 0.2 of query template i
//
// Both methods start from the partner values sorted once and, for each query value, its
// run of partners (stats/sorted_partners.h); the m = 1 count is the run's length.
//   kRunScan: every partner in the run of query[i] is tested on its second and third
//             values, eight floats or four doubles at a time where the processor has
//             AVX2, else four or two; O(N log N + Σ run lengths).
//   kRunScan16Bytes: the same with four floats or two doubles at a time everywhere.
//   kBoxes:   the counts in rank space (stats/box_counts.h), O(N log^2 N) whatever r.
//   kAdaptive picks the one expected to be quicker from the run lengths.
#include <cstdint>
#include <span>

#include "stats/box_counts.h"

namespace tidemark::stats {

enum class MatchMethod { kAdaptive, kRunScan, kRunScan16Bytes, kBoxes };

// How the callers count: every pair (the reference) or fast; both give the same counts.
enum class CountMethod { kDirect, kFast };

// `query_usable` and `partner_usable` are empty (every point usable) or as long as
// their series.
template <typename T>
BoxCounts count_template_matches(std::span<const T> query, std::span<const T> partner,
                                 std::span<const std::uint8_t> query_usable,
                                 std::span<const std::uint8_t> partner_usable, T r,
                                 MatchMethod method = MatchMethod::kAdaptive);

}  // namespace tidemark::stats
