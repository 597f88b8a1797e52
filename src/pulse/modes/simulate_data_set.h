#pragma once
// A simulated series as a data set with its truth: the model parameters in answers 1..8
// and the events as the data set's secretion events.
#include <string>

#include "data/dataset.h"
#include "pulse/simulate.h"

namespace tidemark::pulse {

// Columns TIME, CONC, SEM and REPS (the replicate count; the four further columns 0);
// answers 1..8 the fixed parameters in vector order (missing beyond the layout's half-
// lives); the events as secretion events (data/secretion_events.h); the same parameters
// and events as the set's truth, which no analysis overwrites. The set is marked
// modified, since no file holds it yet.
data::DataSet simulated_data_set(const SimulatedSeries& series, int replicates,
                                 const std::string& file_name, const std::string& handle);

}  // namespace tidemark::pulse
