#pragma once
// The driver of the ApEn mode: dialog "Approximate Entropy", settings file do_apen.ini,
// commands APEN_CALCULATE, ApEn_PRINT and ApEn_VIEW (through the module frame).
//
// A calculation conditions the current data set (data::condition, which may insert
// points into the stored set), takes the crop range's concentrations, standard errors
// and usable flags (a point is usable when its concentration is present and positive
// and its replicate count is not 0), runs analyse_apen with two seeds drawn from the
// session's generator, and hands the frame the listing, its lines for the log, the
// results for the data set's summary-book columns (Q to AJ) and the graph.
#include <memory>

#include "shell/module.h"
#include "stats/apen_series.h"

namespace tidemark::data {
struct DataSet;
}

namespace tidemark::stats {

// The dialog: "First Difference Detrend" (OFF), "Use R as a Fraction of the Data's SD"
// (ON), "R" (0.2) and "MC Cycles" (1000), in this order; then six read-only result
// fields, "ApEn", "Noise Added", "Shuffled", "Ratio", "Z for Random" and "P for Random"
// (apen_result_fields). During the passes "Noise Added" and "Shuffled" count the
// cycles (" Noise Added Cycle 250 of 1000").
const ui::Dialog& apen_dialog();

// The working series of the crop range of `set`; a missing standard error is taken as 0.
WorkingSeries apen_series(const data::DataSet& set);

std::unique_ptr<shell::Module> make_apen_mode();

}  // namespace tidemark::stats
