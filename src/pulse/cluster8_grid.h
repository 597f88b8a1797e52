#pragma once
// Pass one of Cluster8: the samples placed on a regular time grid, single gaps filled.
#include <span>
#include <string>
#include <vector>

namespace tidemark::pulse {

// One sample as the detector reads it.
struct Cluster8Sample {
  float mean = 0;  // concentration (mean of the replicates)
  float sd = 0;    // its standard deviation
  float time = 0;
  float reps = 1;  // number of replicates (a real)
};

// Where a Cluster8 run stopped. Each failure sets the detector's error flag.
enum class Cluster8Stop {
  kDone,
  kBadSettings,     // a cluster size below 1 or a half-life not above 0
  kBadTimes,        // no time grid: fewer than two samples, times not increasing, ...
  kTooManyMissing,  // two or more consecutive grid points without a sample
  kTooFewPoints,    // peak size + nadir size > N
};

// A line pass one reports, in the order met.
struct GridNote {
  enum Kind { kMissing, kAdded, kTooManyMissing } kind = kMissing;
  int point = 0;   // 1-based grid point
  float time = 0;  // j * dt for kMissing and kTooManyMissing, the filled time for kAdded
};

// The grid: point j (1..n) stands for time j * dt. Arrays are 1-based (index 0 unused).
struct Cluster8Grid {
  float dt = 0;
  int n = 0;
  std::vector<float> times, mean, stdev;
  std::vector<int> ndf, nreps;
  std::vector<GridNote> notes;
};

// Grid points beyond this many are refused rather than allocated.
inline constexpr int kMaxGridPoints = 10'000'000;

// Degrees of freedom of a sample with `reps` replicates: truncate(reps - 1) when
// reps >= 1.5, else 1 (a single measurement carries one degree of freedom).
int sample_ndf(float reps);

// Builds the grid from `samples` (in the order given; the last one fixes N):
//   dt = smallest difference of consecutive times, N = truncate(t_last / dt + 0.5),
//   sample k goes to slot truncate(t_k * (1/dt) + 0.5) (the earlier sample wins a slot),
//   slots before the earliest filled one copy it with SD x 10 and nreps = NDF,
//   a single empty interior slot takes its neighbours' average with SD = 5 (SD- + SD+),
//   NDF = truncate((NDF- + NDF+) / 2), nreps = NDF + 1.
// A slot still empty at the end (only the last one can be, through rounding) counts as
// a missing run too. Samples outside slots 1..N (times below dt / 2) are not used.
struct GridOutcome {
  Cluster8Stop stop = Cluster8Stop::kDone;
  std::string message;  // empty on success
};
GridOutcome build_grid(std::span<const Cluster8Sample> samples, Cluster8Grid& grid);

}  // namespace tidemark::pulse
