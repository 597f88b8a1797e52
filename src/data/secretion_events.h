#pragma once
// Secretion events kept on a data set. A pulse analysis leaves them in the answers
// slots, in the order of the secretion-elimination parameter vector: answers 1..8 the
// model parameters (missing when unknown), then per event e = 1, 2, ... the pair
// POSITION at answer 7 + 2e and LogHeight at answer 8 + 2e, for at most 96 events. The
// number of events is the number of leading non-missing POSITION slots, so the events
// survive WRITE_NATIVE and READ_NATIVE, and any mode can read what a pulse analysis
// found, in this run or an earlier one.
#include <span>
#include <vector>

#include "data/dataset.h"

namespace tidemark::data {

inline constexpr int kModelParameterCount = 8;
inline constexpr int kMaxSecretionEvents = 96;

// The events of `set`: the leading run of non-missing POSITION slots, each with its
// LogHeight (which may be missing).
std::vector<SecretionEvent> secretion_events(const DataSet& set);

// Replaces the events of `set` with the first 96 of `events`; the slots of later
// events become missing. The model parameters (answers 1..8) are left as they are.
void set_secretion_events(DataSet& set, std::span<const SecretionEvent> events);

// Sets answers 1..8 to `parameters` (missing where unknown).
void set_model_parameters(DataSet& set, std::span<const double, kModelParameterCount> parameters);

}  // namespace tidemark::data
