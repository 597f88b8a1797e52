#pragma once
// ApEn's columns of the summary books: Q the cycle count, R the tolerance, then for
// m = 1 in S to AA and for m = 2 in AB to AJ the ApEn, the noise-added mean and SD, the
// shuffled mean and SD, the Ratio and its SD, Z and P for random.
#include "data/summary_row.h"
#include "stats/apen_analysis.h"

namespace tidemark::stats {

// Puts the results of `result` into `row`, replacing what an earlier ApEn put there.
void put_apen_summary(data::SummaryRow& row, const ApEnResult& result);

}  // namespace tidemark::stats
