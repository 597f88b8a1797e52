#include "stats/merge_sort.h"

#include <vector>

namespace tidemark::stats {
namespace {

// Sorts values[lo, hi) using scratch[lo, hi) for the merge.
void sort_range(std::span<float> values, std::span<float> scratch, std::size_t lo, std::size_t hi) {
  if (hi - lo < 2) return;
  const std::size_t mid = lo + (hi - lo) / 2;
  sort_range(values, scratch, lo, mid);
  sort_range(values, scratch, mid, hi);
  std::size_t a = lo;
  std::size_t b = mid;
  std::size_t out = lo;
  // Taking from the left half unless the right one is strictly smaller keeps it stable.
  while (a < mid && b < hi) scratch[out++] = values[b] < values[a] ? values[b++] : values[a++];
  while (a < mid) scratch[out++] = values[a++];
  while (b < hi) scratch[out++] = values[b++];
  for (std::size_t i = lo; i < hi; ++i) values[i] = scratch[i];
}

}  // namespace

void merge_sort(std::span<float> values) {
  std::vector<float> scratch(values.size());
  sort_range(values, scratch, 0, values.size());
}

}  // namespace tidemark::stats
