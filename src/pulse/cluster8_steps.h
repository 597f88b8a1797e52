#pragma once
// Passes two to four of Cluster8: significant upward and downward steps between
// clusters of grid points, and the pulses assembled from them.
#include <vector>

#include "pulse/cluster8_grid.h"

namespace tidemark::pulse {

// The t statistic of the step at point i between the B points i-B..i-1 before it and
// the A points i..i+A-1 after it (all within 1..n):
//   W = sum nreps per cluster, m = sum nreps * MEAN / W per cluster,
//   SS = sum NDF * STDEV^2 over both clusters,
//   t = (m_after - m_before) / sqrt(SS / (W_before + W_after - 2)) / sqrt(1/W_b + 1/W_a).
// A pooled variance that is zero or cannot be formed gives +-infinity for different
// means and 0 for equal ones, never NaN.
struct ClusterStep {
  float t = 0;
  float mean_before = 0;
  float mean_after = 0;
};
ClusterStep cluster_step(const Cluster8Grid& g, int i, int before, int after);

// The replicate-weighted mean of MEAN over points first..first+count-1.
float weighted_mean(const Cluster8Grid& g, int first, int count);

// Pass two: up[i] for i = nadir+1..n-peak+1 when t > |t_up| and m_after > min_peak
// (nadir-size cluster before, peak-size after). 1-based; index 0 unused.
std::vector<char> upward_steps(const Cluster8Grid& g, int peak, int nadir, float t_up,
                               float min_peak);

// Pass three: down[i] for i = peak+1..n-nadir+1 when -t > |t_down| and m_before >
// min_peak (peak-size cluster before, nadir-size after).
std::vector<char> downward_steps(const Cluster8Grid& g, int peak, int nadir, float t_down,
                                 float min_peak);

// Pass four: the points inside a pulse. pulse[1] is set when the first step met is
// downward (a downward step wins a tie); each upward step at i in 2..n-peak sets
// i..i+peak-1; forward, a point that is neither set nor a downward step copies its
// predecessor; backward from n-1 to 2, open regions copy their successor (a downward
// step sets the point) until a set point closes them, and the start of each pulse
// leaves the nadir points before it untouched and opens the region before those.
std::vector<char> assemble_pulses(const std::vector<char>& up, const std::vector<char>& down, int n,
                                  int peak, int nadir);

}  // namespace tidemark::pulse
