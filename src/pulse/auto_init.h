#pragma once
// AutoInit: model-free starting values for a deconvolution fit, from Gold's method. It
// searches the elimination half-life and the secretion SD for which Gold's deconvolution
// reproduces the series best, and reads the starting events off the recovered
// secretion profile.
#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pulse/decon_fit.h"
#include "pulse/simulate.h"

namespace tidemark::pulse {

inline constexpr std::string_view kAutoInitFailedTitle = "AutoInitialization Failed";
inline constexpr std::string_view kAutoInitNoEvents = "AutoInit did not find any secretion events!";
inline constexpr std::string_view kAutoInitSdLabel = "AutoInit Estimated SD =";
inline constexpr std::string_view kAutoInitHlLabel = "AutoInit Estimated HL =";

// The smallest secretion SD searched, as a factor of the sampling interval, chosen by the
// option index 0..4.
inline constexpr std::array<double, 5> kAutoInitSdFactors = {0.5, 0.33333333333, 0.25, 0.125,
                                                             0.0625};
// The largest secretion SD searched, in sampling intervals.
inline constexpr double kAutoInitMaxSdIntervals = 3.5;

struct AutoInitOptions {
  int sd_factor_index = 0;  // into kAutoInitSdFactors
};

enum class AutoInitStatus {
  kOk,
  kNoEvents,       // estimates made, but the profile has no event: kAutoInitNoEvents
  kFailed,         // a stage failed: message is one of the stage messages
  kInvalidInput,   // too few samples, irregular or non-positive SDs: message says which
};

struct AutoInitResult {
  AutoInitStatus status = AutoInitStatus::kOk;
  std::string message;
  int stage = 0;              // the stage that failed (1..7), else 0
  double interval = 0;        // the sampling interval used
  double sd = 0;              // estimated secretion SD
  double half_life = 0;       // estimated elimination half-life
  double basal = 0;           // basal secretion S0
  double conc0 = 0;           // C0
  std::vector<SimulatedEvent> events;  // starting events (position, LogHeight)
  std::vector<double> profile;         // the final Gold secretion profile, per sample

  bool ok() const { return status == AutoInitStatus::kOk; }
};

// Starting values for a series sampled at regular times (concentrations and SDs per
// sample). Stages, each a Gold deconvolution or a scan of them:
//   S:1 the series deconvolved with elimination alone at the middle half-life;
//   S:2 half-life scan, elimination alone;          S:3 SD scan with the event shape;
//   S:4 half-life refined with the shape;           S:5 SD refined;
//   S:6 the final profile at the chosen pair;       S:7 events read off the profile.
// A scan picks the longest half-life (the widest SD) at which Gold's mean weighted
// squared residual R reaches kAutoInitTargetResidual, what a model true to the SDs
// leaves: shorter half-lives and narrower bursts always reproduce a series at least as
// well (R falls towards 0 as Gold fits the noise), so the smallest R would pick the
// shortest.
AutoInitResult auto_init(std::span<const float> time, std::span<const double> concentration,
                         std::span<const double> sd, const AutoInitOptions& options = {});

// Starting values without Gold's method, for a series where AutoInit failed: SD half an
// interval, half-life six intervals, the basal secretion that keeps the lowest
// concentration at steady state, C0 0 and no events.
AutoInitResult plain_start(std::span<const float> time, std::span<const double> concentration);

// The starting vector of a one-half-life fit from AutoInit's estimates and events, every
// entry free.
ModelVector auto_init_start(const AutoInitResult& init);

// The residual R, in units of the SDs, that a scan aims at.
inline constexpr double kAutoInitTargetResidual = 1.0;

}  // namespace tidemark::pulse
