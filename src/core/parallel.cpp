#include "core/parallel.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <thread>
#include <vector>

namespace tidemark::core {
namespace {

constexpr int kMaxThreads = 256;
// Chunks per worker: enough for an even share when items differ in cost, and for
// progress and cancel to come often; few enough that taking a chunk costs nothing.
constexpr long kChunksPerWorker = 32;
constexpr auto kReportInterval = std::chrono::milliseconds(50);

int cores() {
  return static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
}

}  // namespace

int default_threads() {
  if (const char* text = std::getenv(kThreadsVariable)) {
    int value = 0;
    const char* end = text + std::strlen(text);
    const auto [stop, error] = std::from_chars(text, end, value);
    if (error == std::errc() && stop == end && value >= 1 && value <= kMaxThreads) return value;
  }
  return cores();
}

int parallel_workers(long count, const ParallelOptions& options) {
  const int threads = options.threads > 0 ? options.threads : default_threads();
  return static_cast<int>(std::clamp<long>(count, 1, threads));
}

bool parallel_for(long count, const ParallelOptions& options, const ChunkWork& work) {
  const auto report = [&](long done) { return !options.progress || options.progress(done, count); };
  if (count <= 0) return report(0);
  const int workers = parallel_workers(count, options);
  const long chunk = std::max(1L, count / (workers * kChunksPerWorker));
  std::atomic<long> next{0};
  std::atomic<long> done{0};
  std::atomic<bool> stop{false};
  std::mutex mutex;
  std::condition_variable finished;
  int running = workers;
  {
    std::vector<std::jthread> pool;
    for (int w = 0; w < workers; ++w) {
      pool.emplace_back([&, w] {
        while (!stop) {
          const long first = next.fetch_add(chunk);
          if (first >= count) break;
          const long last = std::min(first + chunk, count);
          work(w, first, last);
          done += last - first;
        }
        std::lock_guard lock(mutex);
        --running;
        finished.notify_all();
      });
    }
    std::unique_lock lock(mutex);
    while (!finished.wait_for(lock, kReportInterval, [&] { return running == 0; })) {
      lock.unlock();
      if (!report(done)) stop = true;
      lock.lock();
    }
  }
  return !stop && report(done);
}

}  // namespace tidemark::core
