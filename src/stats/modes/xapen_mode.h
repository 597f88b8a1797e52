#pragma once
// The X_ApEn mode's driver: dialog "Cross-Approximate-Entropy" with the fields
// "A Series", "B Series" (1-based data set numbers), "MC Cycles" and "R" (a multiple of
// each series' SD), settings file "do_xapen.ini", commands XAPEN_CALCULATE, XApEn_PRINT
// and XApEn_VIEW. A calculation standardises both series, computes X-ApEn(1, 2), runs
// the noise-added and random passes, and writes the listing, the result lines to the
// log, and the "TIME BETWEEN MATCHES" graph.
#include <memory>

#include "shell/module.h"

namespace tidemark::stats {

std::unique_ptr<shell::Module> make_xapen_mode();

}  // namespace tidemark::stats
