#pragma once
// The arguments of the SIMULATE command: KEY=VALUE words, letter case ignored, in any
// order; a key not given keeps its default.
//
//   SIMULATE SAMPLES=144 INTERVAL=10 HL1=45 SD=4 MEAN_INTERVAL=90 NOISE_CV=0.05 SEED=7
//   SIMULATE EVENTS=100:0.5,400:0.8 HL1=45 HL2=200 F2=0.3 HANDLE=TWO
//
// Keys: SAMPLES, INTERVAL (the grid); BASAL, C0, SD, HL1, F2, HL2, F3, HL3 (the model;
// HL2 gives two half-lives, HL3 three); EVENTS (position:LogHeight pairs separated by
// commas, or NONE), else events drawn with MEAN_INTERVAL, LOGHEIGHT and LOGHEIGHT_SD;
// NOISE_SD, NOISE_CV, REPS (the noise); HANDLE and FILE (the data set's names); SEED (the
// session's generator is seeded first). docs/simulation.md lists the defaults.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "pulse/simulate.h"

namespace tidemark::pulse {

struct SimulateRequest {
  SimulationOptions options;
  std::string handle = "SIM";
  std::string file_name = "simulated.dat";
  std::optional<std::uint64_t> seed;
};

// The request, or (refused) a message naming the first word that does not read: an
// unknown key, a value of the wrong kind, HL3 without HL2, F2 or F3 without its
// half-life.
enum class SimulateArgumentsStatus { kRead, kRefused };

struct SimulateArgumentsResult {
  SimulateArgumentsStatus status = SimulateArgumentsStatus::kRead;
  std::string message;
  SimulateRequest request;

  bool ok() const { return status == SimulateArgumentsStatus::kRead; }
};

SimulateArgumentsResult parse_simulate_arguments(std::string_view text);

}  // namespace tidemark::pulse
