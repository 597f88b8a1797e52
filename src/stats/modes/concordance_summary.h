#pragma once
// Concordance's columns of the summary books, from DH: the peaks of the A and of the B
// series, the coincidences found in the data, the Monte-Carlo cycles, and the chances
// of exactly and of at least that many coincidences by chance (the listing's
// P(#events=k) and P(#events>=k) at the observed k).
#include "data/summary_row.h"
#include "stats/modes/concordance_report.h"

namespace tidemark::stats {

// The first column; the six follow one another.
inline constexpr int kConcordanceFirstColumn = 112;  // DH

// The cells of the results of `report`.
data::SummaryRow concordance_summary(const ConcordanceReport& report);

}  // namespace tidemark::stats
