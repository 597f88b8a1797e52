#pragma once
// Ascending sort of a float array by recursive merge sort, with a scratch array of the
// same length. Stable; O(n log n) comparisons whatever the input order.
#include <span>

namespace tidemark::stats {

// Sorts `values` ascending in place. NaN values compare false with everything; they do
// not stop the sort or break its bounds, but their place in the result is unspecified.
void merge_sort(std::span<float> values);

}  // namespace tidemark::stats
