#pragma once
// Cluster8's columns of the summary books, from AQ: the number of peaks and of valleys,
// the total area, then the mean and SD of each peak statistic (interval between peaks,
// width, height, height as % increase, mean height as % increase, area, largest value
// above basal) and of each valley statistic (width, mean level, nadir), as the listing's
// PEAKS and VALLEYS summaries give them. A statistic the run could not compute (fewer
// than two peaks for an interval, say) is missing.
#include "data/summary_row.h"
#include "pulse/cluster8.h"

namespace tidemark::pulse {

// Puts the results of a finished run into `row`, replacing what an earlier Cluster8 put
// there.
void put_cluster8_summary(data::SummaryRow& row, const Cluster8Result& result);

}  // namespace tidemark::pulse
