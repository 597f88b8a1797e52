#pragma once
// X_ApEn's columns of the summary books, from EB: the Monte-Carlo cycles and R, then for
// m = 1 in ED to EJ and for m = 2 in EK to EQ the X-ApEn of the data, the mean and SD
// of the noise-added and of the random X-ApEn, and the Ratio with its SD, as the
// listing's result lines give them.
#include "data/summary_row.h"
#include "stats/modes/xapen_report.h"

namespace tidemark::stats {

inline constexpr int kXApEnFirstColumn = 132;  // EB

// The cells of the results of `report`.
data::SummaryRow xapen_summary(const XApEnReport& report);

}  // namespace tidemark::stats
