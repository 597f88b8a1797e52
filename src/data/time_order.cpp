#include "data/time_order.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

namespace tidemark::data {
namespace {

// The sort key of a time: NaN becomes -infinity so that every time has a place in one
// strict weak order (a NaN compared with operator< would break the sort's contract).
float key(float t) {
  return std::isnan(t) ? -std::numeric_limits<float>::infinity() : t;
}

bool before(float a, float b) {
  return key(a) < key(b);
}

}  // namespace

bool sort_by_time(DataSet& set) {
  const std::vector<float>& x = set.x();
  if (std::is_sorted(x.begin(), x.end(), before)) return false;

  std::vector<int> order(x.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [&x](int a, int b) { return before(x[a], x[b]); });

  std::vector<float> moved(order.size());
  for (auto& column : set.columns) {
    for (std::size_t i = 0; i < order.size(); ++i) moved[i] = column[order[i]];
    column.swap(moved);
  }
  return true;
}

}  // namespace tidemark::data
