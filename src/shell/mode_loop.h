#pragma once
// The mode loop: while no data set is loaded or no mode is chosen, every command goes to
// the shared command handler (this is how the first data set is read, or a mode
// chosen); once both are there, the chosen mode's driver runs through the module frame
// until the mode changes or the store is emptied. After a two-series mode (Concordance,
// Correlation, X_ApEn) with fewer than two data sets, the shared handler takes one
// command before the driver is entered again, so that the second set can be read.
#include "shell/session.h"

namespace tidemark::shell {

// Runs until the program is to end: EXIT answered yes, or the end of input.
void run_mode_loop(Session& session);

}  // namespace tidemark::shell
