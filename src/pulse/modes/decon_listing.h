#pragma once
// The listing of an AutoDecon or Deconv calculation.
#include <string>

#include "pulse/modes/decon_run.h"

namespace tidemark::pulse {

// The heading, AutoInit's estimates ("AutoInit Estimated SD =", "AutoInit Estimated HL
// =") when it ran, the fit's code, weighted residual variance and degrees of freedom,
// every parameter with its standard error and flag, and per event its POSITION,
// LogHeight, height, mass, half-duration and P; numbers in 1PG15.5. A refused or failed
// calculation lists what it knew (heading, samples, source, AutoInit) and then why.
std::string decon_listing(const DeconRun& run);

}  // namespace tidemark::pulse
