#pragma once
// Shares independent items of work (Monte-Carlo cycles, the trial fits of a scan) among
// threads, reports how far the work has got and stops it when asked.
//
// Items are numbered 0 .. count − 1 and handed out in chunks of consecutive items, the
// chunks in increasing order; a worker's chunks therefore also come in increasing order.
// Which worker runs which chunk varies from run to run. The results depend on the seed
// alone, never on the number of threads, when the work keeps to two rules:
//   - item i draws its random numbers from a stream derived from the seed and i, and
//     writes only its own slot of the output (or state it rebuilds from the items
//     before it, as a shuffle that continues the previous cycle's order does);
//   - what workers accumulate apart (one histogram each) is merged with an operation
//     whose result does not depend on the order (integer counts).
//
// The thread count is set in one place: default_threads().
#include <functional>

namespace tidemark::core {

// The environment variable that sets the thread count of every parallel calculation.
inline constexpr const char* kThreadsVariable = "TIDEMARK_THREADS";

// The number of threads a calculation uses when its options name none: the value of
// TIDEMARK_THREADS when it is a whole number from 1 to 256, otherwise one per core.
int default_threads();

struct ParallelOptions {
  // Threads sharing the items; 0 takes default_threads(). Never more than there are
  // chunks.
  int threads = 0;
  // Called on the calling thread (never on a worker) about every 50 ms while the work
  // runs and once when it ends, with the items done and the count. Answering false
  // cancels: no chunk starts after that, the chunks in hand finish, and parallel_for
  // answers false.
  std::function<bool(long done, long count)> progress{};
};

// The work of one chunk: items [first, last) on worker `worker` (0-based, below
// parallel_workers()).
using ChunkWork = std::function<void(int worker, long first, long last)>;

// The number of workers parallel_for will run for `count` items: per-worker scratch
// and accumulators are sized by it.
int parallel_workers(long count, const ParallelOptions& options);

// Runs `work` over items 0 .. count − 1 and waits for it; true when every item ran,
// false when the progress callback cancelled. The calling thread only watches.
bool parallel_for(long count, const ParallelOptions& options, const ChunkWork& work);

}  // namespace tidemark::core
