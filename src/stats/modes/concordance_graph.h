#pragma once
// The Concordance graph: a page titled "Monte-Carlo Concordance" whose first panel
// shows the event times of series A (at y = 1) and B (at y = 0) as red markers under
// "Show Secretion Events", each row named by its series, and a segment from each A event
// to the B event it coincides with under "Show Coincidences"; below it one panel per
// series with the options every mode's graph shares, its events as position markers.
// All three panels share one time axis, so an event lines up with its series.
#include <string>
#include <string_view>

#include "data/dataset.h"
#include "stats/modes/concordance_report.h"

namespace tidemark::stats {

inline constexpr std::string_view kConcordanceTitle = "Monte-Carlo Concordance";
inline constexpr std::string_view kShowSecretionEvents = "Show Secretion Events";
inline constexpr std::string_view kShowCoincidences = "Show Coincidences";

std::string concordance_graph(const ConcordanceReport& report, const data::DataSet& a,
                              const data::DataSet& b);

}  // namespace tidemark::stats
