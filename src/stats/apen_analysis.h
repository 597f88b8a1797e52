#pragma once
// The whole ApEn calculation on one series: optional differencing and Z-scores, ApEn(1)
// and ApEn(2) of the data, the noise-added and shuffled Monte-Carlo passes, and their
// summaries. Pure: options and series in, result out.
#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "stats/apen.h"
#include "stats/apen_series.h"

namespace tidemark::stats {

inline constexpr int kMinApEnCycles = 2;
inline constexpr int kMaxApEnCycles = 1'000'000;
// The refusal of a tolerance R below 0 (or not a number), in ApEn and X_ApEn alike.
inline constexpr std::string_view kNegativeRLine = "R must be a number not below zero.";

struct ApEnOptions {
  bool difference = false;  // "First Difference Detrend"
  bool r_fraction = true;   // "Use R as a Fraction of the Data's SD": Z-scores, r = R
  double r = 0.2;           // R
  int cycles = 1000;        // Monte-Carlo cycles, kMinApEnCycles .. kMaxApEnCycles
  std::uint64_t noise_seed = 1;
  std::uint64_t shuffle_seed = 2;
  int threads = 0;  // 0 = core::default_threads(); the results do not depend on it
  CountMethod method = CountMethod::kFast;
  // Called on the calling thread with the pass (1 = noise added, 2 = shuffled) and the
  // cycles done, as core::parallel_for reports them; false cancels the calculation.
  std::function<bool(int pass, int done)> progress{};
};

// The summaries of one embedding length m.
struct ApEnSummary {
  float apen = 0;        // ApEn(m, r, N) of the data
  float noise_mean = 0;  // mean and SD of the noise-added ApEn
  float noise_sd = 0;
  float shuffled_mean = 0;  // S: mean and SD of the shuffled ApEn
  float shuffled_sd = 0;
  // Ratio = ApEn / S, its SD = sqrt(|(SD_noise / S)² + (Ratio × SD_shuffled / S)²|).
  float ratio = 0;
  float ratio_sd = 0;
  float z = 0;  // (ApEn − S) / SD_shuffled
  float p = 0;  // fraction of the shuffled values not above ApEn
};

enum class ApEnStatus { kRefused, kDone };

struct ApEnResult {
  ApEnStatus status = ApEnStatus::kRefused;
  std::string message;  // why not, when !ok()
  bool differenced = false;
  bool z_scores = false;
  float r = 0;  // the tolerance used
  int n = 0;    // points of the working series (N − 1 when differenced)
  int cycles = 0;
  std::array<ApEnSummary, 2> m{};  // m = 1, m = 2

  bool ok() const { return status == ApEnStatus::kDone; }
};

// Runs the calculation on `series` (copied: the caller's series is not altered). Fails,
// with a message and nothing computed, for fewer than kMinApEnCycles or more than
// kMaxApEnCycles cycles, a negative or non-finite R, or no run of three usable points
// in the working series; and when the progress callback cancels.
ApEnResult analyse_apen(WorkingSeries series, const ApEnOptions& options);

}  // namespace tidemark::stats
