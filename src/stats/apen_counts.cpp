#include "stats/apen_counts.h"

#include <algorithm>
#include <cmath>
#include <cstring>

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

// Four floats or four 32-bit lanes, for the scan of a run (GCC and Clang vector
// extensions: SSE on x86-64, NEON on ARM, scalar code elsewhere).
typedef float Floats __attribute__((vector_size(16)));
typedef std::int32_t Lanes __attribute__((vector_size(16)));

// |a − y| ≤ r lane by lane: the same IEEE single-precision subtraction as within(),
// its sign bit cleared; -1 in a lane that matches, 0 elsewhere (NaN never matches).
inline Lanes within4(Floats a, const float* y, Floats r) {
  Floats v;
  std::memcpy(&v, y, sizeof v);
  Lanes bits;
  const Floats d = a - v;
  std::memcpy(&bits, &d, sizeof bits);
  bits &= 0x7FFFFFFF;
  Floats magnitude;
  std::memcpy(&magnitude, &bits, sizeof magnitude);
  return magnitude <= r;
}

// Partners among the sorted candidates [lo, hi) whose second value is within r of a
// and, when `third` is given, whose third value is within r of b.
std::int32_t scan_run(const float* second, const float* third, std::size_t lo, std::size_t hi,
                      float a, float b, float r) {
  const Floats a4 = {a, a, a, a};
  const Floats b4 = {b, b, b, b};
  const Floats r4 = {r, r, r, r};
  Lanes found = {0, 0, 0, 0};
  std::size_t p = lo;
  for (; p + 4 <= hi; p += 4) {
    Lanes hit = within4(a4, second + p, r4);
    if (third != nullptr) hit &= within4(b4, third + p, r4);
    found -= hit;
  }
  std::int32_t count = found[0] + found[1] + found[2] + found[3];
  for (; p < hi; ++p) {
    count += within(a, second[p], r) && (third == nullptr || within(b, third[p], r));
  }
  return count;
}

// The counts of length m from the usable templates `order`, sorted by first value and
// all finite. The partners of first[q] in the first value are the run [lo, hi): the
// values below it fail the test as a − y > r, those after it as y − a > r. Both ends
// only move up as a grows, so one sweep finds every run; with r ≥ 0 the run holds q.
TemplateCounts counts_in_order(std::span<const float> x, std::span<const std::int32_t> order,
                               float r, int m) {
  TemplateCounts counts = empty_counts(x.size(), m, order.size());
  const std::size_t u = order.size();
  std::vector<float> first(u);
  std::vector<float> later(u * static_cast<std::size_t>(m - 1));
  for (std::size_t p = 0; p < u; ++p) {
    first[p] = x[order[p]];
    for (int k = 1; k < m; ++k) later[(k - 1) * u + p] = x[order[p] + k];
  }
  const float* second = m > 1 ? later.data() : nullptr;
  const float* third = m > 2 ? later.data() + u : nullptr;
  std::size_t lo = 0;
  std::size_t hi = 0;
  for (std::size_t q = 0; q < u; ++q) {
    const float a = first[q];
    while (lo < u && a - first[lo] > r) ++lo;
    hi = std::max(hi, lo);
    while (hi < u && first[hi] - a <= r) ++hi;
    const std::int32_t i = order[q];
    counts.matches[i] = second == nullptr
                            ? static_cast<std::int32_t>(hi - lo)
                            : scan_run(second, third, lo, hi, x[i + 1], m > 2 ? x[i + 2] : 0, r);
  }
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
                                                     std::span<const std::uint8_t> usable,
                                                     float r) {
  // Usable points sorted by value once; the templates of each m keep this order.
  std::vector<std::int32_t> points = usable_templates(usable, 1);
  for (std::int32_t t : points) {
    if (!std::isfinite(x[t])) {
      return {count_matches_direct(x, usable, r, 1), count_matches_direct(x, usable, r, 2),
              count_matches_direct(x, usable, r, 3)};
    }
  }
  std::sort(points.begin(), points.end(),
            [&](std::int32_t a, std::int32_t b) { return x[a] < x[b] || (x[a] == x[b] && a < b); });
  std::array<TemplateCounts, 3> all;
  std::vector<std::int32_t> order;
  for (int m = 1; m <= 3; ++m) {
    order.clear();
    for (std::int32_t t : points) {
      if (static_cast<std::size_t>(t + m) <= x.size() && usable_template(usable, t, m)) {
        order.push_back(t);
      }
    }
    all[m - 1] = counts_in_order(x, order, r, m);
  }
  return all;
}

TemplateCounts count_matches_fast(std::span<const float> x, std::span<const std::uint8_t> usable,
                                  float r, int m) {
  return count_matches_fast_all(x, usable, r)[m - 1];
}

}  // namespace tidemark::stats
