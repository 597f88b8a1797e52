#include "stats/radix_order.h"

#include <array>
#include <cstring>
#include <type_traits>

namespace tidemark::stats {
namespace {

template <typename T>
using Bits = std::conditional_t<sizeof(T) == sizeof(std::uint32_t), std::uint32_t, std::uint64_t>;

template <typename T>
Bits<T> ordered_bits(T value) {
  Bits<T> bits;
  std::memcpy(&bits, &value, sizeof bits);
  constexpr Bits<T> kSign = Bits<T>{1} << (8 * sizeof(T) - 1);
  return (bits & kSign) != 0 ? ~bits : (bits | kSign);
}

}  // namespace

template <typename T>
void sort_by_value(std::span<const T> x, std::vector<std::int32_t>& order) {
  struct Item {
    Bits<T> key;
    std::int32_t index;
  };
  constexpr std::size_t kPasses = sizeof(T);
  const std::size_t n = order.size();
  std::vector<Item> items(n);
  std::vector<Item> moved(n);
  std::array<std::array<std::size_t, 256>, kPasses> histogram{};
  for (std::size_t k = 0; k < n; ++k) {
    items[k] = {ordered_bits(x[static_cast<std::size_t>(order[k])]), order[k]};
    for (std::size_t pass = 0; pass < kPasses; ++pass) {
      ++histogram[pass][(items[k].key >> (8 * pass)) & 0xFF];
    }
  }
  for (std::size_t pass = 0; pass < kPasses; ++pass) {
    std::array<std::size_t, 256>& start = histogram[pass];
    // A byte that every key shares leaves the order as it is.
    if (start[(items.empty() ? 0 : items[0].key >> (8 * pass)) & 0xFF] == n) continue;
    std::size_t sum = 0;
    for (std::size_t& bucket : start) {
      const std::size_t count = bucket;
      bucket = sum;
      sum += count;
    }
    for (const Item& item : items) moved[start[(item.key >> (8 * pass)) & 0xFF]++] = item;
    items.swap(moved);
  }
  for (std::size_t k = 0; k < n; ++k) order[k] = items[k].index;
}

template void sort_by_value(std::span<const float>, std::vector<std::int32_t>&);
template void sort_by_value(std::span<const double>, std::vector<std::int32_t>&);

}  // namespace tidemark::stats
