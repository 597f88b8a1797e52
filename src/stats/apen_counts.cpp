#include "stats/apen_counts.h"

#include <cmath>
#include <utility>

#include "stats/template_matches.h"

namespace tidemark::stats {
namespace {

// Whether the values x[i] and y are within r: the one test both methods use.
inline bool within(float a, float b, float r) {
  return std::fabs(a - b) <= r;
}

// Whether template t of length m holds only usable points.
inline bool usable_template(std::span<const std::uint8_t> usable, std::size_t t, int m) {
  for (int k = 0; k < m; ++k) {
    if (usable[t + static_cast<std::size_t>(k)] == 0) return false;
  }
  return true;
}

// The start of each usable template of length m, ascending.
std::vector<std::int32_t> usable_templates(std::span<const std::uint8_t> usable, int m) {
  std::vector<std::int32_t> starts;
  const std::size_t n = usable.size();
  const std::size_t length = static_cast<std::size_t>(m);
  if (n < length) return starts;
  for (std::size_t t = 0; t + length <= n; ++t) {
    if (usable_template(usable, t, m)) starts.push_back(static_cast<std::int32_t>(t));
  }
  return starts;
}

TemplateCounts empty_counts(std::size_t n, int m, std::size_t usable) {
  const std::size_t length = static_cast<std::size_t>(m);
  TemplateCounts counts;
  counts.matches.assign(n >= length ? n - length + 1 : 0, 0);
  counts.usable = static_cast<std::int32_t>(usable);
  return counts;
}

}  // namespace

TemplateCounts count_matches_direct(std::span<const float> x, std::span<const std::uint8_t> usable,
                                    float r, int m) {
  const std::vector<std::int32_t> starts = usable_templates(usable, m);
  TemplateCounts counts = empty_counts(x.size(), m, starts.size());
  for (std::int32_t i : starts) {
    std::int32_t matches = 0;
    for (std::int32_t j : starts) {
      bool match = true;
      for (int k = 0; k < m && match; ++k) match = within(x[i + k], x[j + k], r);
      matches += match;
    }
    counts.matches[i] = matches;
  }
  return counts;
}

std::array<TemplateCounts, 3> count_matches_fast_all(std::span<const float> x,
                                                     std::span<const std::uint8_t> usable, float r,
                                                     MatchMethod method) {
  BoxCounts matches = count_template_matches<float>(x, x, usable, usable, r, method);
  std::array<TemplateCounts, 3> all;
  for (int m = 1; m <= 3; ++m) {
    all[m - 1].matches = std::move(matches[m - 1]);
    all[m - 1].usable = static_cast<std::int32_t>(usable_templates(usable, m).size());
  }
  return all;
}

}  // namespace tidemark::stats
