#pragma once
// The Cluster8 listing: the lines of pass one, the header, the pass parameters, the
// PASS FOUR point table with its strip chart, the PEAKS and VALLEYS tables with their
// summaries and the outlier lists, column for column in Fortran formats.
#include <string>
#include <string_view>

#include "pulse/cluster8.h"

namespace tidemark::pulse {

// Printed after "  Cluster Program Version".
inline constexpr const char* kCluster8Version = " 8.0 (Tidemark)";

// The whole listing of one run on the data set `file_name`, each line ended by '\n'; the
// version line names the data set ("  Cluster Program Version 8.0 (Tidemark) on
// a.dat"). A run that stopped lists what was done up to the stop and the reason, and one
// that stopped before the version line ends with " Data set a.dat".
std::string cluster8_listing(const Cluster8Result& result, const Cluster8Settings& settings,
                             std::string_view file_name);

// The 49 characters after a point's flags: the strip chart of columns 1..45 with a "*"
// in column truncate((x - lo) / (hi - lo) * 44 + 1.01) for x = mean, mean + sd and
// mean - sd, a blank, "*" in column 47 and "**" in columns 48-49 inside a pulse.
std::string strip_chart(float mean, float sd, float lo, float hi, bool in_pulse);

}  // namespace tidemark::pulse
