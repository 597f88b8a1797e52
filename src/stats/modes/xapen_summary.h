#pragma once
// X_ApEn's columns of the summary books, from DU: the Monte-Carlo cycles and R, then for
// m = 1 in DW to EC and for m = 2 in ED to EJ the X-ApEn of the data, the mean and SD
// of the noise-added and of the random X-ApEn, and the Ratio with its SD, as the
// listing's result lines give them.
#include "data/summary_row.h"
#include "stats/modes/xapen_report.h"

namespace tidemark::stats {

inline constexpr int kXApEnFirstColumn = 125;  // DU

// The cells of the results of `report`.
data::SummaryRow xapen_summary(const XApEnReport& report);

}  // namespace tidemark::stats
