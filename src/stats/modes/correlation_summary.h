#pragma once
// Correlation's columns of the summary books, from DN: the mean and variance of the A
// and of the B series, the cross-correlation at lag 0, the lag of the largest
// cross-correlation with that correlation and its S.E., and Kendall's tau at lag 0, as
// the listing gives them. An undefined correlation is missing; when every
// cross-correlation is undefined the best lag is missing too.
#include "data/summary_row.h"
#include "stats/correlation_analysis.h"

namespace tidemark::stats {

inline constexpr int kCorrelationFirstColumn = 118;  // DN

// Puts the results of `analysis` into `row`, replacing what an earlier Correlation put
// there. The best lag is the one of the largest cross-correlation, the most negative
// lag of equal ones.
data::SummaryRow correlation_summary(const CorrelationAnalysis& analysis);

}  // namespace tidemark::stats
