#pragma once
// The peak and valley tables of Cluster8 and their summary statistics, from the grid
// and the pulse flags of pass four.
#include <span>
#include <vector>

#include "pulse/cluster8.h"

namespace tidemark::pulse {

// Peaks, scanning s = nadir+1, ...: a peak starts at s when pulse[s] is set and
// pulse[s-1] clear, and ends at the first e > s with pulse[e-1] set and pulse[e] clear,
// e <= n - nadir; a pulse with no such end stops the scan. LARGEST and POSITION over
// s..e (earliest of ties), pre-nadir mean over s-nadir..s-1, post-nadir mean over
// e..e+nadir-1 (both replicate-weighted), peak mean = plain average over s..e.
std::vector<Cluster8Peak> find_peaks(const Cluster8Grid& g, const std::vector<char>& pulse,
                                     int nadir);

// Valleys, scanning s = 2, ...: a valley starts at s when pulse[s] is clear and
// pulse[s-1] set, and ends at the first e > s, e <= n, with pulse[e-1] clear and pulse[e]
// set; NADIR = smallest MEAN over s..e (latest of ties), MEAN = plain average over s..e.
std::vector<Cluster8Valley> find_valleys(const Cluster8Grid& g, const std::vector<char>& pulse);

// Mean and SD of the entries of `values` other than -1 (an entry counts when
// |1 + v| >= 1e-8): SD = sqrt(sum (x - mean)^2 / (n - 1)) for n >= 2, else 0. No value
// when no entry counts.
OptionalSummary summarise(std::span<const float> values);

// The summaries over more than one peak (valley); no value for one or none. The
// interval is the difference of consecutive POSITIONs, its mean and SD times dt.
std::optional<Cluster8PeakSummary> summarise_peaks(std::span<const Cluster8Peak> peaks, float dt);
std::optional<Cluster8ValleySummary> summarise_valleys(std::span<const Cluster8Valley> valleys);

}  // namespace tidemark::pulse
