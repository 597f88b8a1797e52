#pragma once
// The graph source of a Gold_Method calculation: the concentration series with the
// common options in the upper panel, the secretion estimate in the lower one.
#include <string>

#include "pulse/modes/gold_run.h"

namespace tidemark::pulse {

// Page "Gold's Method Deconvolution"; panel 1 the data set's handle with the common
// options (the data set's secretion events as position markers); panel 2 "Secretion",
// half as high, the estimate at the used samples as a line, as steps under the option
// "Show Secretion Steps" (off by default).
std::string gold_graph(const GoldRun& run);

}  // namespace tidemark::pulse
