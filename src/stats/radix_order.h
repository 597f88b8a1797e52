#pragma once
// Stable ascending sort of points by their float or double value, in linear time: a
// least-significant-byte-first radix sort of the values' bit patterns, mapped so that
// unsigned order is numeric order (the sign bit set for a positive value, every bit
// flipped for a negative one). Points of equal value keep their order; -0 comes before
// +0, which compare equal, so the result is sorted all the same.
//
//   std::vector<std::int32_t> order = {0, 1, 2};
//   sort_by_value<float>(std::vector<float>{2, -1, 2}, order);   // order = {1, 0, 2}
#include <cstdint>
#include <span>
#include <vector>

namespace tidemark::stats {

// Reorders the point indices `order` by x[index] ascending. No value may be NaN.
template <typename T>
void sort_by_value(std::span<const T> x, std::vector<std::int32_t>& order);

}  // namespace tidemark::stats
