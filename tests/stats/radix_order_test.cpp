#include "stats/radix_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <numeric>
#include <random>
#include <vector>

namespace tidemark::stats {
namespace {

// The expected values in order come from std::stable_sort with operator<. -0 and +0
// compare equal there while the radix sort puts -0 first, so the indices are checked
// within each run of identical bit patterns: ascending, as a stable sort leaves them.
std::vector<std::int32_t> expected_indices(std::size_t n) {
  std::vector<std::int32_t> all(n);
  std::iota(all.begin(), all.end(), 0);
  return all;
}

template <typename T>
void expect_sorted_like_stable_sort(const std::vector<T>& x) {
  std::vector<std::int32_t> order = expected_indices(x.size());
  std::vector<std::int32_t> expected = order;
  std::stable_sort(expected.begin(), expected.end(),
                   [&](std::int32_t a, std::int32_t b) { return x[a] < x[b]; });
  sort_by_value<T>(x, order);
  std::vector<std::int32_t> each = order;
  std::sort(each.begin(), each.end());
  ASSERT_EQ(each, expected_indices(x.size())) << "a permutation";
  for (std::size_t k = 0; k < order.size(); ++k) {
    ASSERT_EQ(x[order[k]], x[expected[k]]) << "position " << k;
    if (k > 0 && std::memcmp(&x[order[k - 1]], &x[order[k]], sizeof(T)) == 0) {
      ASSERT_LT(order[k - 1], order[k]) << "equal values keep their order";
    }
  }
}

template <typename T>
std::vector<T> random_values(std::mt19937& gen, int n) {
  const T special[] = {0,
                       -T{0},
                       std::numeric_limits<T>::infinity(),
                       -std::numeric_limits<T>::infinity(),
                       std::numeric_limits<T>::denorm_min(),
                       -std::numeric_limits<T>::denorm_min(),
                       std::numeric_limits<T>::max(),
                       std::numeric_limits<T>::lowest()};
  std::uniform_int_distribution<int> kind(0, 3);
  std::uniform_int_distribution<int> pick(0, 7);
  std::normal_distribution<T> normal;
  std::vector<T> x(n);
  for (T& v : x) {
    const int k = kind(gen);
    v = k == 0 ? special[pick(gen)] : k == 1 ? static_cast<T>(pick(gen) - 4) : normal(gen) * T{1000};
  }
  return x;
}

TEST(RadixOrder, FloatsAndDoublesSortAsStableSortDoesWithTiesAndSpecialValues) {
  std::mt19937 gen(31);
  for (const int n : {0, 1, 2, 7, 100, 3000}) {
    SCOPED_TRACE(testing::Message() << "n " << n);
    expect_sorted_like_stable_sort(random_values<float>(gen, n));
    expect_sorted_like_stable_sort(random_values<double>(gen, n));
  }
}

TEST(RadixOrder, NegativeZeroComesBeforePositiveZero) {
  std::vector<std::int32_t> order = {0, 1, 2, 3};
  sort_by_value<double>(std::vector<double>{0.0, -0.0, -1.0, 0.0}, order);
  EXPECT_EQ(order, (std::vector<std::int32_t>{2, 1, 0, 3}));
}

}  // namespace
}  // namespace tidemark::stats
