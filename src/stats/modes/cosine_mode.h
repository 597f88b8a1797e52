#pragma once
// The driver of the Cosine mode: dialog "Cosine Analysis", settings file do_cosine.ini,
// commands COSINE_CALCULATE, COSINE_VIEW, COSINE_PRINT (through the module frame) and
// its own COSINE_SUBTRACT, COSINE_RESET and COSINE_STORE.
//
// The dialog's starting values Period, Amplitude and Mean hold -1.0E30 (unset) until
// given: unset, they are the defaults worked out when the mode first calculates on a
// data set (the time span, the standard deviation about the Mean, the reference fit's
// Mean). After a successful fit the fitted values become the starting values of the
// next Calculate, unless a value was SET in between.
#include <memory>

#include "shell/module.h"

namespace tidemark::stats {

// The dialog of the mode: five starting values (in the grid headed by the model's caption) and five
// fit flags (grid "Fit"), in the order Period, Amplitude, Phase, Mean, Slope.
const ui::Dialog& cosine_dialog();

std::unique_ptr<shell::Module> make_cosine_module(int variant);

}  // namespace tidemark::stats
