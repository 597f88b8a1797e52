#pragma once
// Simulated hormone series with known truth: the secretion-elimination model sampled at
// a regular interval, secretion events given or drawn at random, and Gaussian assay
// noise averaged over replicates. Every random number comes from the generator passed
// in, so a series depends only on its seed.
#include <span>
#include <string>
#include <vector>

#include "core/random.h"
#include "pulse/model_layout.h"

namespace tidemark::pulse {

struct SimulatedEvent {
  double position = 0;    // time of the secretion maximum
  double log_height = 0;  // log10 of the peak secretion rate
};

// Events drawn at random: successive intervals uniform on [0.5, 1.5] * mean_interval
// (the first from time 0), kept while the position does not pass the last sample;
// LogHeight = mean_log_height + log_height_sd * z with z the generator's Gaussian
// deviate.
struct RandomEvents {
  double mean_interval = 60;
  double mean_log_height = 0;
  double log_height_sd = 0;
};

struct SimulationOptions {
  // The fixed part of the parameter vector (first_event_index() entries of a layout
  // with `half_lives`: S0, C0, sigma, HL1 [, f2, HL2 [, f3, HL3]]).
  int half_lives = 1;
  std::vector<double> fixed;
  // Given events; when empty and `draw` is set, events are drawn.
  std::vector<SimulatedEvent> events;
  bool draw = false;
  RandomEvents random_events;
  // Samples at times 0, interval, 2 * interval, ...
  int samples = 144;
  double interval = 10;
  // Assay SD of one replicate: noise_sd + noise_cv * |C(t)|. Each sample is the mean of
  // `replicates` draws C(t) + SD * z; its standard error is SD / sqrt(replicates).
  double noise_sd = 0;
  double noise_cv = 0;
  int replicates = 1;
};

// Bounds that keep a simulation finite in time and memory.
inline constexpr int kMaxSimulatedSamples = 100'000;
inline constexpr int kMaxSimulatedReplicates = 1000;

enum class SimulationStatus { kOk, kRefused };

struct SimulatedSeries {
  SimulationStatus status = SimulationStatus::kOk;
  std::string message;  // why the options were refused; empty when ok()
  ModelLayout layout;
  std::vector<double> parameters;  // the whole vector: fixed part, then the events
  std::vector<float> time;
  std::vector<float> model;          // C(t), noiseless
  std::vector<float> concentration;  // the mean of the replicates
  std::vector<float> sem;            // SD(t) / sqrt(replicates)

  bool ok() const { return status == SimulationStatus::kOk; }
};

// Simulates one series. Refused (`ok()` false; the generator has advanced only when events
// were drawn before the refusal): a layout outside 1..3
// half-lives, a fixed part of the wrong length, samples outside 1..kMaxSimulatedSamples,
// an interval, noise SD or CV that is negative or not finite (the interval must be
// positive), replicates outside 1..kMaxSimulatedReplicates, more than kMaxEvents events
// (given or drawn), drawn events with a mean interval that is not positive, and any
// vector the model refuses or cannot evaluate (its message is passed on).
SimulatedSeries simulate_series(const SimulationOptions& options, core::Random& random);

}  // namespace tidemark::pulse
