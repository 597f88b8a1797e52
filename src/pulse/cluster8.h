#pragma once
// Cluster8 pulse detection: the secretory pulses (peaks) and valleys of one hormone
// series, found by pooled-variance t-tests between clusters of consecutive samples, and
// the single samples that fall faster than elimination allows (outliers).
//
//   pulse::Cluster8Settings s;              // the dialog's defaults
//   const auto r = pulse::run_cluster8(samples, s);
//   if (!r.ok()) show(r.message);           // r still holds what was done before the stop
//   for (const auto& p : r.peaks) ...       // p.position is a 1-based grid point
//
// Arithmetic is single precision throughout, as the per-point work arrays are.
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "pulse/cluster8_grid.h"

namespace tidemark::pulse {

struct Cluster8Settings {
  int peak_size = 2;        // points in the cluster on the high side of a step
  int nadir_size = 2;       // points in the cluster on the low side of a step
  float t_up = 2.0f;        // t threshold of an upward step (its absolute value)
  float t_down = 2.0f;      // t threshold of a downward step (its absolute value)
  float min_peak = 0.0f;    // the peak-side cluster mean must exceed it
  float half_life = 50.0f;  // elimination half-life of the outlier tests (> 0)
  float outlier_t = 4.0f;   // critical t of the outlier tests
};

// One row of the peak table; grid points are 1-based. A statistic that cannot be
// formed (a percent of a zero mean) holds -1, the "none" of the summaries.
struct Cluster8Peak {
  int position = -1;  // first point holding the largest mean
  int start = -1;     // first pulse point
  int end = -1;       // first point after the pulse
  float width = 0;    // (end - start) * dt
  float largest = 0;
  float largest_percent = -1;  // largest / pre-nadir mean * 100
  float mean_percent = -1;     // peak mean / ((post + pre) / 2) * 100
  float area = 0;              // (peak mean - min(post, pre)) * width
  float increase = 0;          // largest - pre-nadir mean
  float pre_nadir_mean = 0;    // replicate-weighted mean of the nadir points before it
};

struct Cluster8Valley {
  int position = -1;  // last point holding the smallest mean
  int start = -1;
  int end = -1;
  float width = 0;
  float nadir = 0;
  float mean = 0;
};

// Mean and SD of one summary quantity: over the entries other than -1, SD with n - 1;
// SD 0 with fewer than two entries. No value when no entry counts.
struct Cluster8Summary {
  float mean = 0;
  float sd = 0;
};
using OptionalSummary = std::optional<Cluster8Summary>;

// Summaries, formed only when more than one peak (valley) was found.
struct Cluster8PeakSummary {
  OptionalSummary interval, width, height, height_percent, mean_percent, area, increase;
};
struct Cluster8ValleySummary {
  OptionalSummary width, mean, nadir;
};

struct Cluster8Outliers {
  std::vector<int> questionable;  // 1-based points, after the probable test's swaps
  std::vector<int> probable;
};

struct Cluster8Result {
  Cluster8Stop stop = Cluster8Stop::kDone;
  std::string message;   // why the run stopped; empty when it finished
  Cluster8Grid grid;     // pass one
  float grid_mean = 0;   // plain average of MEAN over the grid
  float total_area = 0;  // trapezoid rule with the first interval
  // Passes two to four, 1-based like the grid (index 0 unused).
  std::vector<char> up, down, pulse;
  std::vector<Cluster8Peak> peaks;
  std::vector<Cluster8Valley> valleys;
  std::optional<Cluster8PeakSummary> peak_summary;
  std::optional<Cluster8ValleySummary> valley_summary;
  Cluster8Outliers outliers;

  bool ok() const { return stop == Cluster8Stop::kDone; }
  // The detector's error flag: 1 for any failure, 0 on success.
  int error_flag() const { return ok() ? 0 : 1; }
};

// Runs pass one (the grid), the step tests, the pulse assembly, the tables and the
// outlier tests. Never throws; bad input gives a stop reason and a message.
Cluster8Result run_cluster8(std::span<const Cluster8Sample> samples,
                            const Cluster8Settings& settings);

}  // namespace tidemark::pulse
