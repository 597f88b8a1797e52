#pragma once
// What a Cluster8 run leaves beyond its listing: the peaks as secretion events of the
// data set, and the lines for the answers file and the log.
#include <string>
#include <vector>

#include "data/secretion_events.h"
#include "pulse/cluster8.h"

namespace tidemark::pulse {

// One event per peak: POSITION = the grid time of the peak's largest value, LogHeight =
// log10 of its increase above the pre-nadir mean, or of its largest value when that
// increase is not positive (missing when neither is positive).
std::vector<data::SecretionEvent> cluster8_events(const Cluster8Result& result);

// The answers-file block of a run on `file_name`: a title line, the counts, one line per
// event ("POSITION(e) = ...  LogHeight(e) = ...", 1PG15.5) and the outlier lists.
std::string cluster8_answers(const std::string& file_name, const Cluster8Result& result);

// The log lines of a successful run: the counts of peaks, valleys and outliers.
std::vector<std::string> cluster8_log_lines(const std::string& file_name,
                                            const Cluster8Result& result);

}  // namespace tidemark::pulse
