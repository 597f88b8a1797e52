#include "pulse/auto_init.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "pulse/gold.h"
#include "pulse/gold_kernel.h"

namespace tidemark::pulse {

namespace {

constexpr int kMinSamples = 8;
// Half-lives searched, in sampling intervals, and the refinement around the first pick.
constexpr double kMinHalfLifeIntervals = 1.0;
constexpr double kMaxHalfLifeIntervals = 24.0;
constexpr int kCoarseSteps = 9;
constexpr int kFineSteps = 5;
constexpr double kFineSpan = 1.6;  // the refinement spans pick / kFineSpan .. pick * kFineSpan
// Events: local maxima of the profile standing above the floor by this share of the
// profile's range; the floor is this quantile of the profile.
constexpr double kEventShare = 0.15;
constexpr double kFloorQuantile = 0.25;

struct Stage {
  int number;
  std::string_view convergence;  // message when no deconvolution of the stage converged
  std::string_view failure;      // message when they failed otherwise
};

constexpr Stage kStage1{1, "Gold Method Decoonvolution Error S:1",
                        "Gold Method Decoonvolution Error S:1"};
constexpr Stage kStage2{2, "Gold Method Convergence Error S:2",
                        "Gold Method Decoonvolution Error S:2"};
constexpr Stage kStage3{3, "Gold Method Decoonvolution Error S:3",
                        "Gold Method Decoonvolution Error S:3"};
constexpr Stage kStage4{4, "Gold Method Convergence Error s:4",
                        "Gold Method Decoonvolution Error S:4"};
constexpr Stage kStage5{5, "Gold Method Deconvolution Error S:5",
                        "Gold Method Decoonvolution Error S:5"};
constexpr Stage kStage6{6, "Gold Method Convergence Error S:6",
                        "Gold Method Decoonvolution Error S:6"};
constexpr Stage kStage7{7, "Gold Method Decoonvolution Error S:7",
                        "Gold Method Decoonvolution Error S:7"};

struct Series {
  std::vector<double> c;
  std::span<const double> sd;
  std::vector<int> use;
  double dt = 0;
};

// One deconvolution at (half-life, SD); sd <= 0 means elimination alone.
GoldResult deconvolve(const Series& s, double half_life, double sd) {
  const int n = static_cast<int>(s.c.size());
  const GoldKernel k = gold_kernel(half_life, sd > 0 ? sd : 1.0, sd > 0, s.dt, n);
  if (!k.ok()) {
    GoldResult failed;
    failed.status = GoldStatus::kInvalidInput;
    failed.message = k.message;
    return failed;
  }
  return gold_deconvolve({s.c, s.sd, s.use}, k.kernel, {k.first_lag, k.last_lag, s.dt});
}

std::vector<double> geometric(double from, double to, int steps) {
  std::vector<double> v;
  for (int i = 0; i < steps; ++i) {
    v.push_back(from * std::pow(to / from, steps > 1 ? double(i) / (steps - 1) : 0.0));
  }
  return v;
}

// The value a scan picked, or why it picked none.
struct ScanPick {
  std::string_view failure;  // empty when a value was picked
  double value = 0;
  bool ok() const { return failure.empty(); }
};

// Runs one deconvolution per candidate (in increasing order) and picks the value at
// which R reaches kAutoInitTargetResidual, interpolated linearly in R between the last
// candidate at or below it and the next; the first candidate when none is at or below
// it, the last when all are. `run` maps a candidate to its result.
template <typename Run>
ScanPick scan(const std::vector<double>& candidates, const Stage& stage, Run run) {
  std::vector<double> r(candidates.size(), HUGE_VAL);
  bool any_converged = false;
  bool any_usable = false;
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    const GoldResult g = run(candidates[i]);
    if (g.ok() || g.status == GoldStatus::kNoConvergence) {
      r[i] = g.residual;
      any_usable = true;
      any_converged = any_converged || g.ok();
    }
  }
  if (!any_usable) return {stage.failure, 0};
  if (!any_converged) return {stage.convergence, 0};
  std::size_t below = candidates.size();
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    if (r[i] <= kAutoInitTargetResidual) below = i;
  }
  if (below == candidates.size()) return {{}, candidates.front()};
  if (below + 1 == candidates.size() || !std::isfinite(r[below + 1])) {
    return {{}, candidates[below]};
  }
  const double share = (kAutoInitTargetResidual - r[below]) / (r[below + 1] - r[below]);
  return {{}, candidates[below] + share * (candidates[below + 1] - candidates[below])};
}

double quantile(std::vector<double> v, double q) {
  std::sort(v.begin(), v.end());
  return v[static_cast<std::size_t>(q * double(v.size() - 1))];
}

AutoInitResult failure(AutoInitResult r, const Stage& stage, std::string_view message) {
  r.status = AutoInitStatus::kFailed;
  r.stage = stage.number;
  r.message = std::string(message);
  return r;
}

// Local maxima of the profile above the floor: position refined by a parabola through
// the maximum and its neighbours, height the excess over the floor summed over the
// three samples (a burst between two samples shares its rate between them).
std::vector<SimulatedEvent> read_events(std::span<const float> time,
                                        const std::vector<double>& s, double floor, double dt) {
  std::vector<SimulatedEvent> events;
  const double top = *std::max_element(s.begin(), s.end());
  const double threshold = floor + kEventShare * (top - floor);
  const std::size_t n = s.size();
  // A profile without relief has no events.
  if (!(top - floor > kEventShare * top)) return events;
  // The first sample carries all secretion before the series (C0's part), not an event.
  for (std::size_t i = 1; i < n; ++i) {
    const double left = i > 0 ? s[i - 1] : -HUGE_VAL;
    const double right = i + 1 < n ? s[i + 1] : -HUGE_VAL;
    if (!(s[i] > threshold && s[i] > left && s[i] >= right)) continue;
    double offset = 0;
    double height = s[i] - floor;
    if (i > 0 && i + 1 < n) {
      const double curvature = left - 2 * s[i] + right;
      if (curvature < 0) offset = std::clamp(0.5 * (left - right) / curvature, -0.5, 0.5);
      height += std::max(left - floor, 0.0) + std::max(right - floor, 0.0);
    }
    const double position = time[i] + offset * dt;
    if (!events.empty() && position - events.back().position < dt) {
      // Two maxima within an interval are one burst: the higher stays.
      if (events.back().log_height >= std::log10(height)) continue;
      events.pop_back();
    }
    events.push_back({position, std::log10(height)});
  }
  return events;
}

}  // namespace

AutoInitResult plain_start(std::span<const float> time, std::span<const double> concentration) {
  AutoInitResult r;
  const std::size_t n = time.size();
  r.interval = n > 1 ? (double(time[n - 1]) - double(time[0])) / double(n - 1) : 1.0;
  if (!(r.interval > 0)) r.interval = 1.0;
  r.sd = 0.5 * r.interval;
  r.half_life = 6 * r.interval;
  const double low = n > 0 ? *std::min_element(concentration.begin(), concentration.end()) : 0;
  r.basal = std::max(low, 0.0) * std::numbers::ln2 / r.half_life;
  return r;
}

ModelVector auto_init_start(const AutoInitResult& init) {
  ModelVector v{{1, 0}, {init.basal, init.conc0, init.sd, init.half_life}, {true, true, true, true}};
  for (const SimulatedEvent& e : init.events) v.insert_event(e.position, e.log_height);
  return v;
}

AutoInitResult auto_init(std::span<const float> time, std::span<const double> concentration,
                         std::span<const double> sd, const AutoInitOptions& options) {
  AutoInitResult result;
  const std::size_t n = time.size();
  if (n < kMinSamples || concentration.size() != n || sd.size() != n) {
    result.status = AutoInitStatus::kInvalidInput;
    result.message = "AutoInit needs at least 8 samples";
    return result;
  }
  if (options.sd_factor_index < 0 ||
      options.sd_factor_index >= static_cast<int>(kAutoInitSdFactors.size())) {
    result.status = AutoInitStatus::kInvalidInput;
    result.message = "The AutoInit SD factor index must be 0 to 4";
    return result;
  }
  Series s;
  s.sd = sd;
  s.dt = (double(time[n - 1]) - double(time[0])) / double(n - 1);
  double top = 0;
  for (std::size_t i = 0; i < n; ++i) {
    if (!(sd[i] > 0) || !std::isfinite(concentration[i])) {
      result.status = AutoInitStatus::kInvalidInput;
      result.message = "AutoInit needs finite concentrations and positive SDs";
      return result;
    }
    top = std::max(top, concentration[i]);
  }
  if (!(s.dt > 0) || !(top > 0)) {
    result.status = AutoInitStatus::kInvalidInput;
    result.message = "AutoInit needs increasing times and a positive concentration";
    return result;
  }
  // Gold's correction keeps the sign of each sample: a concentration at or below zero
  // (noise about a low level) is lifted to a small positive value.
  for (std::size_t i = 0; i < n; ++i) s.c.push_back(std::max(concentration[i], 1e-3 * top));
  s.use.assign(n, 1);
  result.interval = s.dt;

  const double span = double(time[n - 1]) - double(time[0]);
  const double hl_low = kMinHalfLifeIntervals * s.dt;
  const double hl_high = std::max(hl_low * 2, std::min(kMaxHalfLifeIntervals * s.dt, span / 2));
  const double sd_low = kAutoInitSdFactors[options.sd_factor_index] * s.dt;
  const double sd_high = kAutoInitMaxSdIntervals * s.dt;

  if (const GoldResult g = deconvolve(s, std::sqrt(hl_low * hl_high), 0); !g.ok()) {
    if (g.status != GoldStatus::kNoConvergence) return failure(result, kStage1, kStage1.failure);
  }
  const ScanPick hl2 = scan(geometric(hl_low, hl_high, kCoarseSteps), kStage2,
                            [&](double hl) { return deconvolve(s, hl, 0); });
  if (!hl2.ok()) return failure(result, kStage2, hl2.failure);
  const ScanPick sd3 = scan(geometric(sd_low, sd_high, kCoarseSteps), kStage3,
                            [&](double w) { return deconvolve(s, hl2.value, w); });
  if (!sd3.ok()) return failure(result, kStage3, sd3.failure);
  const ScanPick hl4 =
      scan(geometric(hl2.value / kFineSpan, hl2.value * kFineSpan, kFineSteps), kStage4,
           [&](double hl) { return deconvolve(s, hl, sd3.value); });
  if (!hl4.ok()) return failure(result, kStage4, hl4.failure);
  const ScanPick sd5 = scan(geometric(std::max(sd_low, sd3.value / kFineSpan),
                                      std::min(sd_high, sd3.value * kFineSpan), kFineSteps),
                            kStage5, [&](double w) { return deconvolve(s, hl4.value, w); });
  if (!sd5.ok()) return failure(result, kStage5, sd5.failure);
  result.half_life = hl4.value;
  result.sd = sd5.value;

  const GoldResult g6 = deconvolve(s, result.half_life, result.sd);
  if (g6.status == GoldStatus::kNoConvergence) return failure(result, kStage6, kStage6.convergence);
  if (!g6.ok()) return failure(result, kStage6, kStage6.failure);
  result.profile = g6.secretion;

  const double floor = quantile(result.profile, kFloorQuantile);
  bool finite = true;
  for (const double v : result.profile) finite = finite && std::isfinite(v);
  if (!finite || !(floor >= 0)) return failure(result, kStage7, kStage7.failure);
  // A constant profile s stands for the basal rate s * sum of the shape kernel, the
  // Gaussian's integral sigma sqrt(2 pi) over the sampling interval.
  result.basal = floor * result.sd * std::sqrt(2 * std::numbers::pi) / s.dt;
  const double k = std::numbers::ln2 / result.half_life;
  result.conc0 = std::max(0.0, (concentration[0] - result.basal / k) *
                                   std::exp(k * double(time[0])));
  result.events = read_events(time, result.profile, floor, s.dt);
  if (result.events.empty()) {
    result.status = AutoInitStatus::kNoEvents;
    result.message = std::string(kAutoInitNoEvents);
  }
  return result;
}

}  // namespace tidemark::pulse
