#pragma once
// Template match counts of approximate entropy, by the direct pairwise method and by a
// fast method that gives the same counts.
//
// For embedding length m the templates are the runs x[i] .. x[i+m-1], i = 0 .. N-m. A
// template holding an unusable point (usable[k] == 0) is neither a template nor a
// partner. Template j is a partner of template i when, in single precision,
//   max over k < m of |x[i+k] − x[j+k]| ≤ r,
// j = i included (the self-match).
#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace tidemark::stats {

struct TemplateCounts {
  // matches[i]: the partners of template i; 0 for a template holding an unusable point.
  std::vector<std::int32_t> matches;
  // The number of usable templates: the templates every usable template is compared to.
  std::int32_t usable = 0;
};

// The reference: every usable template against every usable template, O(N²·m).
TemplateCounts count_matches_direct(std::span<const float> x, std::span<const std::uint8_t> usable,
                                    float r, int m);

// The same counts, fast. Usable templates are sorted by their first value;
// because float subtraction is monotone, the partners of x[i] in the first value are a
// contiguous run of the sorted values, and one sweep with the same test |x[i] − x[j]| ≤ r
// finds every run. For m = 1 the run's length is the count; for m > 1 the run is scanned
// four at a time (SIMD) for the remaining values, stored contiguously in sorted order.
// O(N log N) plus the total length of the runs, memory O(N). Values that are not finite
// make the test non-monotone (inf − inf is NaN): such a series is counted by the direct
// method.
TemplateCounts count_matches_fast(std::span<const float> x, std::span<const std::uint8_t> usable,
                                  float r, int m);

// The fast counts of m = 1, 2 and 3 at once, from one sort of the usable points.
std::array<TemplateCounts, 3> count_matches_fast_all(std::span<const float> x,
                                                     std::span<const std::uint8_t> usable, float r);

}  // namespace tidemark::stats
