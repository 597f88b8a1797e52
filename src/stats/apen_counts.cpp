#include "stats/apen_counts.h"

#include <algorithm>
#include <cmath>
#include <numeric>

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

// Partners of (a, b) among the sorted candidates [lo, hi): second and third values
// tested; branch-free so that the compiler can vectorise it.
std::int32_t scan_run(const float* second, const float* third, std::size_t lo, std::size_t hi,
                      float a, float b, float r) {
  std::int32_t count = 0;
  if (third == nullptr) {
    for (std::size_t p = lo; p < hi; ++p) count += within(a, second[p], r);
  } else {
    for (std::size_t p = lo; p < hi; ++p) {
      count += within(a, second[p], r) & within(b, third[p], r);
    }
  }
  return count;
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

TemplateCounts count_matches_fast(std::span<const float> x, std::span<const std::uint8_t> usable,
                                  float r, int m) {
  std::vector<std::int32_t> order = usable_templates(usable, m);
  for (std::int32_t t : order) {
    for (int k = 0; k < m; ++k) {
      if (!std::isfinite(x[t + k])) return count_matches_direct(x, usable, r, m);
    }
  }
  TemplateCounts counts = empty_counts(x.size(), m, order.size());
  std::stable_sort(order.begin(), order.end(),
                   [&](std::int32_t a, std::int32_t b) { return x[a] < x[b]; });
  // The first values in sorted order, and the later values of each template beside them.
  const std::size_t u = order.size();
  std::vector<float> first(u);
  std::vector<float> later(u * static_cast<std::size_t>(m - 1));
  for (std::size_t p = 0; p < u; ++p) {
    first[p] = x[order[p]];
    for (int k = 1; k < m; ++k) later[(k - 1) * u + p] = x[order[p] + k];
  }
  const float* second = m > 1 ? later.data() : nullptr;
  const float* third = m > 2 ? later.data() + u : nullptr;
  for (std::int32_t i : order) {
    const float a = x[i];
    // Sorted values below a − r fail the test from below, those above a + r from above;
    // with r ≥ 0 the run holds x[i] itself.
    const auto lo =
        std::partition_point(first.begin(), first.end(), [&](float y) { return a - y > r; });
    const auto hi = std::partition_point(lo, first.end(), [&](float y) { return y - a <= r; });
    const auto from = static_cast<std::size_t>(lo - first.begin());
    const auto to = static_cast<std::size_t>(hi - first.begin());
    counts.matches[i] = second == nullptr
                            ? static_cast<std::int32_t>(to - from)
                            : scan_run(second, third, from, to, x[i + 1], m > 2 ? x[i + 2] : 0, r);
  }
  return counts;
}

}  // namespace tidemark::stats
