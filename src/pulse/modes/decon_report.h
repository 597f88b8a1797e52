#pragma once
// What an AutoDecon or Deconv calculation leaves beyond its listing and graph: the model
// and events in the data set's answers slots, its summary-book row, the answers-file
// block and the log lines.
#include <array>
#include <string>
#include <vector>

#include "data/dataset.h"
#include "data/secretion_events.h"
#include "pulse/modes/decon_run.h"

namespace tidemark::pulse {

// Answers 1..8 of the data set: the fitted parameters (missing beyond the half-lives).
std::array<double, data::kModelParameterCount> decon_model_parameters(const DeconRun& run);

// The fitted events, for the data set's answers slots after the parameters.
std::vector<data::SecretionEvent> decon_events(const DeconRun& run);

// Summary-book columns B to I: "Decon # Events", "Decon Mean Interval", "Decon Basal
// Secretion", "Decon Pulsatile Secretion", "Decon Half-Life(1)", "Decon Half-Life(2)",
// "Decon Half-Life(3)" (missing when not in the model) and "Decon SD".
void put_decon_summary(data::SummaryRow& row, const DeconRun& run);

// The answers-file block: a title line, the parameters, and per event its POSITION,
// LogHeight, mass and P (1PG15.5).
std::string decon_answers(const DeconRun& run);

// The log line of a successful calculation.
std::string decon_log_line(const DeconRun& run);

}  // namespace tidemark::pulse
