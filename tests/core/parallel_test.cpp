#include "core/parallel.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <mutex>
#include <thread>
#include <vector>

namespace tidemark::core {
namespace {

struct Chunk {
  int worker;
  long first, last;
};

TEST(ParallelFor, EveryItemRunsOnceAndAWorkersChunksComeInIncreasingOrder) {
  for (const long count : {1L, 2L, 7L, 100L, 5000L}) {
    for (const int threads : {1, 2, 3, 8}) {
      SCOPED_TRACE(testing::Message() << count << " items, " << threads << " threads");
      const ParallelOptions options{.threads = threads};
      const int workers = parallel_workers(count, options);
      EXPECT_EQ(workers, std::min<long>(count, threads));
      std::vector<std::atomic<int>> runs(static_cast<std::size_t>(count));
      std::mutex mutex;
      std::vector<Chunk> chunks;
      EXPECT_TRUE(parallel_for(count, options, [&](int worker, long first, long last) {
        for (long i = first; i < last; ++i) ++runs[static_cast<std::size_t>(i)];
        std::lock_guard lock(mutex);
        chunks.push_back({worker, first, last});
      }));
      for (const auto& r : runs) EXPECT_EQ(r, 1);
      std::vector<long> reached(static_cast<std::size_t>(workers), 0);
      for (const Chunk& c : chunks) {
        ASSERT_GE(c.worker, 0);
        ASSERT_LT(c.worker, workers);
        EXPECT_LT(c.first, c.last);
        EXPECT_GE(c.first, reached[static_cast<std::size_t>(c.worker)]);
        reached[static_cast<std::size_t>(c.worker)] = c.last;
      }
    }
  }
}

TEST(ParallelFor, ProgressComesOnTheCallingThreadAndEndsWithEverythingDone) {
  const auto caller = std::this_thread::get_id();
  long last_done = -1, last_count = -1;
  bool elsewhere = false;
  const ParallelOptions options{.threads = 3, .progress = [&](long done, long count) {
                                  elsewhere = elsewhere || std::this_thread::get_id() != caller;
                                  last_done = done;
                                  last_count = count;
                                  return true;
                                }};
  EXPECT_TRUE(parallel_for(40, options, [](int, long, long) {
    std::this_thread::sleep_for(std::chrono::milliseconds(3));
  }));
  EXPECT_FALSE(elsewhere);
  EXPECT_EQ(last_done, 40);
  EXPECT_EQ(last_count, 40);
  // No items: one report of nothing to do.
  EXPECT_TRUE(parallel_for(0, options, [](int, long, long) { ADD_FAILURE(); }));
  EXPECT_EQ(last_count, 0);
}

// A watcher on another thread (a window's Cancel button) sets a flag; the progress
// callback passes it on, and no chunk starts after it.
TEST(ParallelFor, ACancelFromAnotherThreadStopsTheWorkEarly) {
  std::atomic<bool> cancel{false};
  std::atomic<long> ran{0};
  std::jthread watcher([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    cancel = true;
  });
  const ParallelOptions options{.threads = 2, .progress = [&](long, long) { return !cancel; }};
  EXPECT_FALSE(parallel_for(2000, options, [&](int, long first, long last) {
    for (long i = first; i < last; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      ++ran;
    }
  }));
  EXPECT_LT(ran, 2000);
}

TEST(DefaultThreads, TakesAWholeNumberFromTheEnvironmentAndOtherwiseOnePerCore) {
  const int cores = static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
  const struct {
    const char* value;  // nullptr: unset
    int expected;
  } cases[] = {{"3", 3},      {"1", 1},      {"256", 256},  {"0", cores}, {"257", cores},
               {"-2", cores}, {"4x", cores}, {" 4", cores}, {"", cores},  {nullptr, cores}};
  for (const auto& c : cases) {
    if (c.value)
      setenv(kThreadsVariable, c.value, 1);
    else
      unsetenv(kThreadsVariable);
    EXPECT_EQ(default_threads(), c.expected) << (c.value ? c.value : "unset");
    EXPECT_EQ(parallel_workers(1000, {}), c.expected);
  }
  unsetenv(kThreadsVariable);
}

}  // namespace
}  // namespace tidemark::core
