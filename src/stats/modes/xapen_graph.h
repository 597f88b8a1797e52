#pragma once
// The X_ApEn graph: a page titled "TIME BETWEEN MATCHES" whose first panel draws the
// number of matches against the lag j - i (in samples) for templates of length 1 ("m=0")
// and 2 ("m=1"), the second under the option "Show m=1 Matches", with their legend under
// the lag axis; below it one panel per series with the options every mode's graph shares.
#include <string>

#include "data/dataset.h"
#include "stats/modes/xapen_report.h"

namespace tidemark::stats {

inline constexpr std::string_view kXApEnGraphTitle = "TIME BETWEEN MATCHES";
inline constexpr std::string_view kShowSecondLength = "Show m=1 Matches";

// The graph source of `report` for the series A and B it was computed on.
std::string xapen_graph(const XApEnReport& report, const data::DataSet& a, const data::DataSet& b);

}  // namespace tidemark::stats
