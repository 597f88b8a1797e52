#pragma once
// The listing of a Gold_Method calculation (docs/gold-mode.md shows its layout).
#include <string>

#include "pulse/modes/gold_run.h"

namespace tidemark::pulse {

// Header lines (file, handle, half-life, secretion SD with the shape kernel, kernel and
// its lags, sampling interval, iterations, R, whether it converged), then one line per
// sample: number (I5), time, concentration and secretion (1PG15.5 each); a sample that
// took no part shows "       not used" for its secretion.
std::string gold_listing(const GoldRun& run);

// The block appended to the answers file: "Gold_Method results for " + file name, the
// half-life (and secretion SD with the shape kernel), sampling interval, iterations and
// R, then " SECRETION(i) = " with its " TIME(i) = " for every sample that took part.
std::string gold_answers(const GoldRun& run);

}  // namespace tidemark::pulse
