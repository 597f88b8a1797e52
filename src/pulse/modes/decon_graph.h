#pragma once
// The graph source of an AutoDecon or Deconv calculation.
#include <string>

#include "pulse/modes/decon_run.h"

namespace tidemark::pulse {

// Three panels: the data with the fitted concentration curve and the event markers
// (the common options); the secretion rate with the events marked at their heights;
// the weighted residuals (c - C) / SD under "Show Residuals".
std::string decon_graph(const DeconRun& run);

}  // namespace tidemark::pulse
