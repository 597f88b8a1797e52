#include "data/gap_filler.h"

#include "core/missing.h"

namespace tidemark::data {
namespace {

// The value of column `c` at an inserted point with neighbour values p, n and weights
// wp, wn (see fill_gaps).
float blend(int c, float p, float n, int wp, int wn) {
  if (c == kReps) return 0;
  if (c >= kFx1 || core::is_missing(p) || core::is_missing(n)) return core::kMissingF;
  const double sum = wp * double(p) + wn * double(n);
  if (c == kDY) return float(sum);
  return float(sum * (wp + wn == 2 ? 0.5 : 1.0 / 3.0));
}

}  // namespace

int missing_points(double g) {
  if (g > 0.98 && g < 1.02) return 0;
  if (g > 1.96 && g < 2.04) return 1;
  if (g > 2.94 && g < 3.06) return 2;
  return -1;
}

GapPlan plan_gaps(std::span<const float> times, int first, int last, double median) {
  GapPlan plan;
  for (int i = first + 1; i <= last; ++i) {
    const int missing = missing_points((double(times[i]) - double(times[i - 1])) / median);
    if (missing < 0) {
      plan.irregular = i;
      break;
    }
    if (missing > 0) plan.insertions.push_back({i - 1, missing});
  }
  return plan;
}

void fill_gaps(DataSet& set, std::span<const Insertion> insertions) {
  if (insertions.empty()) return;
  std::size_t added = 0;
  for (const Insertion& gap : insertions) added += std::size_t(gap.count);

  for (int c = 0; c < kColumnCount; ++c) {
    const std::vector<float>& old = set.columns[c];
    std::vector<float> grown;
    grown.reserve(old.size() + added);
    auto next = insertions.begin();
    for (std::size_t i = 0; i < old.size(); ++i) {
      grown.push_back(old[i]);
      if (next == insertions.end() || std::size_t(next->after) != i) continue;
      if (next->count == 1) {
        grown.push_back(blend(c, old[i], old[i + 1], 1, 1));
      } else {
        grown.push_back(blend(c, old[i], old[i + 1], 2, 1));
        grown.push_back(blend(c, old[i], old[i + 1], 1, 2));
      }
      ++next;
    }
    set.columns[c].swap(grown);
  }
}

}  // namespace tidemark::data
