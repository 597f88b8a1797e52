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

#include "stats/template_matches.h"

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

// The same counts for m = 1, 2 and 3 at once, fast: the usable points are sorted once
// and the counts taken by a scan of each template's run of partners or in rank space,
// whichever `method` names (stats/template_matches.h). O(N log N) plus the run
// lengths, or O(N log^2 N); memory O(N).
std::array<TemplateCounts, 3> count_matches_fast_all(std::span<const float> x,
                                                     std::span<const std::uint8_t> usable, float r,
                                                     MatchMethod method = MatchMethod::kAdaptive);

}  // namespace tidemark::stats
