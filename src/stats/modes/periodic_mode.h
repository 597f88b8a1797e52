#pragma once
// The driver of the Periodic mode: dialog "Periodic Rhythm Analysis", settings file
// do_periodic.ini, commands PERIODIC_CALCULATE, PERIODIC_VIEW, PERIODIC_PRINT (through
// the module frame) and its own PERIODIC_SUBTRACT, PERIODIC_RESET and PERIODIC_STORE.
//
// A calculation conditions the current data set, takes the generalised Lomb-Scargle
// periodogram over the dialog's period range, lists its top peaks with the Baluev and
// permutation false-alarm probabilities (cycles from the session's SEED), and fits K
// harmonics at the chosen period (the dialog's Period, or the best peak when it is
// unset). PERIODIC_SUBTRACT takes the last fit's harmonics out of the data set it was
// fitted on (the MESOR and trend stay), PERIODIC_RESET brings the concentrations back,
// PERIODIC_STORE keeps the current series as a new data set ("_per"). The permutation
// cycles are shared among threads (core::parallel_for) with their progress shown; a
// cancel leaves the listing, graph and results as they were.
#include <memory>

#include "shell/module.h"

namespace tidemark::stats {

const ui::Dialog& periodic_dialog();

std::unique_ptr<shell::Module> make_periodic_mode();

}  // namespace tidemark::stats
