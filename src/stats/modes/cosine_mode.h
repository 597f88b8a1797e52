#pragma once
// The driver of the Cosine mode: dialog "Cosine Analysis", settings file do_cosine.ini,
// commands COSINE_CALCULATE, COSINE_VIEW, COSINE_PRINT (through the module frame) and
// its own COSINE_SUBTRACT, COSINE_RESET and COSINE_STORE.
//
// The dialog's starting values Period, Amplitude and Mean hold -1.0E30 (unset) until
// the mode first calculates or subtracts on a data set: then the reference fit and the
// period scan run, and the defaults (the time span, the standard deviation about the
// Mean, the reference fit's Mean) are written into every starting value that the user
// has not set since the mode last wrote it. After a successful fit the fitted values
// are written back as the next starting values, and the result fields "Variance" and
// "Remaining" show the listing's " Variance = " and " % variance remaining" lines.
#include <memory>

#include "shell/module.h"

namespace tidemark::stats {

// The dialog of the mode: five starting values (in the grid headed by the model's
// caption) and five fit flags (grid "Fit"), in the order Period, Amplitude, Phase, Mean,
// Slope; then the two read-only result fields (grid "Results").
const ui::Dialog& cosine_dialog();

std::unique_ptr<shell::Module> make_cosine_mode();

}  // namespace tidemark::stats
