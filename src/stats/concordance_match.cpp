#include "stats/concordance_match.h"

namespace tidemark::stats {
namespace {

// Runs the matcher with `taken` as the B events' flags and calls take(i, j) for every
// pair; returns their number.
template <typename Take>
int match(std::span<const double> a, std::span<const double> b, CoincidenceRange r,
          std::vector<char>& taken, Take take) {
  taken.assign(b.size(), 0);
  int count = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t j = 0; j < b.size(); ++j) {
      const double d = b[j] - a[i];
      if (taken[j] || d < r.lo || d > r.hi) continue;
      taken[j] = 1;
      take(static_cast<int>(i), static_cast<int>(j));
      ++count;
      break;
    }
  }
  return count;
}

}  // namespace

std::vector<CoincidentPair> match_events(std::span<const double> a, std::span<const double> b,
                                         CoincidenceRange range) {
  std::vector<CoincidentPair> pairs;
  std::vector<char> taken;
  match(a, b, range, taken, [&](int i, int j) { pairs.emplace_back(i, j); });
  return pairs;
}

int count_coincidences(std::span<const double> a, std::span<const double> b, CoincidenceRange range,
                       std::vector<char>& taken) {
  return match(a, b, range, taken, [](int, int) {});
}

}  // namespace tidemark::stats
