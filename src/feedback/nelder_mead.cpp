#include "feedback/nelder_mead.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace tidemark::feedback {
namespace {

constexpr int kMaxRestarts = 50;

struct SineMap {
  std::span<const double> lower, upper;

  std::vector<double> to_box(std::span<const double> z) const {
    std::vector<double> x(z.size());
    for (std::size_t d = 0; d < z.size(); ++d) {
      x[d] = std::clamp(lower[d] + (upper[d] - lower[d]) * (1 + std::sin(z[d])) / 2, lower[d],
                        upper[d]);
    }
    return x;
  }
  std::vector<double> from_box(std::span<const double> x) const {
    std::vector<double> z(x.size());
    for (std::size_t d = 0; d < x.size(); ++d) {
      const double width = upper[d] - lower[d];
      const double s = width > 0 ? 2 * (x[d] - lower[d]) / width - 1 : 0;
      z[d] = std::asin(std::clamp(s, -1.0, 1.0));
    }
    return z;
  }
};

struct Search {
  const Objective& f;
  const SineMap& map;
  long evaluations = 0;

  double value(std::span<const double> z) {
    ++evaluations;
    const double v = f(map.to_box(z));
    return std::isnan(v) ? std::numeric_limits<double>::infinity() : v;
  }
};

// One simplex search from z0; returns the best vertex and its value.
std::pair<std::vector<double>, double> simplex_search(Search& search, std::vector<double> z0,
                                                      const NelderMeadOptions& options,
                                                      bool& converged) {
  const std::size_t n = z0.size();
  std::vector<std::vector<double>> vertex(n + 1, z0);
  std::vector<double> value(n + 1);
  for (std::size_t d = 0; d < n; ++d) vertex[d + 1][d] += 0.5;
  for (std::size_t i = 0; i <= n; ++i) value[i] = search.value(vertex[i]);
  std::vector<std::size_t> order(n + 1);
  auto point = [n](const std::vector<double>& a, const std::vector<double>& b, double t) {
    std::vector<double> p(n);
    for (std::size_t d = 0; d < n; ++d) p[d] = a[d] + t * (b[d] - a[d]);
    return p;
  };
  converged = false;
  while (search.evaluations < options.max_evaluations) {
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(),
              [&value](std::size_t a, std::size_t b) { return value[a] < value[b]; });
    const std::size_t best = order.front(), worst = order.back(), second = order[n - 1];
    const double spread = value[worst] - value[best];
    if (std::isfinite(spread) &&
        spread <= std::max(options.tolerance * std::abs(value[best]), options.absolute)) {
      converged = true;
      break;
    }
    std::vector<double> centroid(n, 0.0);
    for (std::size_t i : order) {
      if (i == worst) continue;
      for (std::size_t d = 0; d < n; ++d) centroid[d] += vertex[i][d] / static_cast<double>(n);
    }
    const std::vector<double> reflected = point(centroid, vertex[worst], -1);
    const double fr = search.value(reflected);
    if (fr < value[best]) {
      const std::vector<double> expanded = point(centroid, vertex[worst], -2);
      const double fe = search.value(expanded);
      if (fe < fr) {
        vertex[worst] = expanded, value[worst] = fe;
      } else {
        vertex[worst] = reflected, value[worst] = fr;
      }
      continue;
    }
    if (fr < value[second]) {
      vertex[worst] = reflected, value[worst] = fr;
      continue;
    }
    // Contract outside (towards the reflected point) or inside (towards the worst).
    const bool outside = fr < value[worst];
    const std::vector<double> contracted =
        outside ? point(centroid, reflected, 0.5) : point(centroid, vertex[worst], 0.5);
    const double fc = search.value(contracted);
    if (fc < (outside ? fr : value[worst])) {
      vertex[worst] = contracted, value[worst] = fc;
      continue;
    }
    for (std::size_t i = 0; i <= n; ++i) {
      if (i == best) continue;
      vertex[i] = point(vertex[best], vertex[i], 0.5);
      value[i] = search.value(vertex[i]);
    }
  }
  const auto best = static_cast<std::size_t>(
      std::min_element(value.begin(), value.end()) - value.begin());
  return {vertex[best], value[best]};
}

}  // namespace

SearchResult nelder_mead(const Objective& f, std::span<const double> start,
                             std::span<const double> lower, std::span<const double> upper,
                             const NelderMeadOptions& options) {
  const SineMap map{lower, upper};
  Search search{f, map};
  bool converged = false;
  auto [z, value] = simplex_search(search, map.from_box(start), options, converged);
  // Restart from the best point while that still helps: a fresh simplex escapes the
  // collapsed ones of non-smooth criteria (least absolute, min-max).
  // A restart cut short by the evaluation limit still leaves a converged search's point.
  for (int restart = 0; restart < kMaxRestarts && converged; ++restart) {
    bool again = false;
    auto [z2, value2] = simplex_search(search, z, options, again);
    const bool helped =
        value - value2 > std::max(options.tolerance * std::abs(value2), options.absolute);
    z = std::move(z2);
    value = value2;
    if (!helped || !again) break;
  }
  SearchResult result;
  result.best = map.to_box(z);
  result.value = value;
  result.evaluations = search.evaluations;
  result.complete = converged;
  return result;
}

}  // namespace tidemark::feedback
