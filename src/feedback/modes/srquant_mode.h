#pragma once
// The driver of the SRQuant mode: dialog "Signal-Response Quantification", settings file
// do_srquant.ini, commands DOSE_RESPONSE_CALCULATE, _VIEW and _PRINT (also with the
// prefix RESPONSE_) through the module frame, and its own
//   DOSE_RESPONSE_PARAMETER "name" start lower upper FIT|HOLD   (or RESPONSE_PARAMETER)
//   DOSE_RESPONSE_DEFAULTS                                      (or RESPONSE_DEFAULTS)
// which set one model parameter, or take every parameter back to the defaults from the
// data.
//
// A calculation reads the output data set and one to five input data sets
// (srquant_data.h), takes each parameter's start, bounds and fit flag from what the user
// set or else from the data (srquant_defaults.h), fits the model (feedback/response_fit.h)
// with its progress shown and a cancel honoured, and hands back the listing, graph, log
// lines, answers and summary cells. The data sets are never changed.
#include <memory>

#include "shell/module.h"

namespace tidemark::feedback {

const ui::Dialog& srquant_dialog();

std::unique_ptr<shell::Module> make_srquant_mode();

}  // namespace tidemark::feedback
