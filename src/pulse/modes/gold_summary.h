#pragma once
// Gold_Method's columns of the summary books, from DW: the elimination half-life, the
// secretion SD (missing for the elimination-only kernel, which has none), the sampling
// interval, the iterations and the residual R, as the listing gives them.
#include "data/summary_row.h"
#include "pulse/modes/gold_run.h"

namespace tidemark::pulse {

inline constexpr int kGoldFirstColumn = 127;  // DW

// The cells of the results of `run`.
data::SummaryRow gold_summary(const GoldRun& run);

}  // namespace tidemark::pulse
