#pragma once
// The Correlation mode's driver: dialog "Cross-Correlation" ("A Series", "B Series",
// "max Lag"), settings file do_corr.ini, commands CORR_CALCULATE, CORR_PRINT and
// CORR_VIEW. A calculation conditions both data sets, pairs their series, runs the
// correlation analysis and hands the frame the listing, the log line and the graph.
#include <memory>

#include "shell/module.h"

namespace tidemark::stats {

std::unique_ptr<shell::Module> make_correlation_mode();

}  // namespace tidemark::stats
