// The period scan shared among threads.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "stats/cosine_start.h"

namespace tidemark::stats {
namespace {

TEST(CosineScan, TheTableIsTheSameWhateverTheNumberOfThreads) {
  std::vector<double> t, y;
  for (int i = 1; i <= 90; ++i) {
    t.push_back(10.0 * i);
    y.push_back(10 + 3 * std::cos((t.back() - 50) * 6.283185307 / 240) + 0.3 * ((i * 7) % 5 - 2));
  }
  const CosineStart one = start_cosine(t, y, {.threads = 1});
  for (const int threads : {2, 3, 7, 200}) {
    const CosineStart many = start_cosine(t, y, {.threads = threads});
    EXPECT_EQ(many.scan_period, one.scan_period) << threads;
    EXPECT_EQ(many.scan_percent, one.scan_percent) << threads;
  }
  // The scan found something: the true period of 240 leaves little of the variance.
  EXPECT_LT(one.scan_percent[23], 10.0);
  const CosineStart cancelled =
      start_cosine(t, y, {.threads = 2, .progress = [](long, long) { return false; }});
  EXPECT_FALSE(cancelled.complete);
  EXPECT_TRUE(one.complete);
}

}  // namespace
}  // namespace tidemark::stats
