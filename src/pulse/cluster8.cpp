#include "pulse/cluster8.h"

#include "pulse/cluster8_outliers.h"
#include "pulse/cluster8_steps.h"
#include "pulse/cluster8_tables.h"

namespace tidemark::pulse {
namespace {

std::string settings_problem(const Cluster8Settings& s) {
  if (s.peak_size < 1 || s.nadir_size < 1) return "The cluster sizes must be at least 1";
  if (!(s.half_life > 0.0f)) return "The Half-Life must be greater than 0";
  return {};
}

// The plain average of MEAN and the trapezoid area (sum - MEAN(1)/2 - MEAN(N)/2) times
// the first interval.
void header_values(Cluster8Result& r) {
  const Cluster8Grid& g = r.grid;
  float sum = 0.0f;
  for (int j = 1; j <= g.n; ++j) sum += g.mean[j];
  r.grid_mean = sum / static_cast<float>(g.n);
  const float first_interval = g.n >= 2 ? g.times[2] - g.times[1] : 0.0f;
  r.total_area = (sum - 0.5f * g.mean[1] - 0.5f * g.mean[g.n]) * first_interval;
}

}  // namespace

Cluster8Result run_cluster8(std::span<const Cluster8Sample> samples,
                            const Cluster8Settings& settings) {
  Cluster8Result r;
  if (std::string problem = settings_problem(settings); !problem.empty()) {
    r.stop = Cluster8Stop::kBadSettings;
    r.message = std::move(problem);
    return r;
  }
  GridOutcome grid = build_grid(samples, r.grid);
  if (grid.stop != Cluster8Stop::kDone) {
    r.stop = grid.stop;
    r.message = std::move(grid.message);
    return r;
  }
  header_values(r);
  const Cluster8Grid& g = r.grid;
  const int peak = settings.peak_size;
  const int nadir = settings.nadir_size;
  if (peak > g.n - nadir) {
    r.stop = Cluster8Stop::kTooFewPoints;
    r.message = "NOT ENOUGH DATA POINTS FOR PASS 3";
    return r;
  }
  r.up = upward_steps(g, peak, nadir, settings.t_up, settings.min_peak);
  r.down = downward_steps(g, peak, nadir, settings.t_down, settings.min_peak);
  r.pulse = assemble_pulses(r.up, r.down, g.n, peak, nadir);
  r.peaks = find_peaks(g, r.pulse, nadir);
  r.valleys = find_valleys(g, r.pulse);
  r.peak_summary = summarise_peaks(r.peaks, g.dt);
  r.valley_summary = summarise_valleys(r.valleys);
  r.outliers = find_outliers(g, settings.half_life, settings.outlier_t);
  return r;
}

}  // namespace tidemark::pulse
