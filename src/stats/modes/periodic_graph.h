#pragma once
// The graph of the Periodic mode: the series with the fitted rhythm over it (the common
// options of every mode's graph, plus "Show Fitted Curve"), and below it the
// periodogram, power against trial period on a log axis, with the Baluev false-alarm
// levels 0.05 and 0.01 ("Show False-Alarm Levels") and the top peaks ("Show Peaks").
#include <string>

#include "data/dataset.h"
#include "stats/periodic_gls.h"
#include "stats/periodic_harmonics.h"
#include "stats/periodic_significance.h"

namespace tidemark::stats {

// Points on the fitted curve: enough for four harmonics over many periods.
inline constexpr int kPeriodicCurvePoints = 800;

struct PeriodicGraph {
  const data::DataSet& set;
  const PeriodogramResult& periodogram;
  const PeaksResult& peaks;
  const HarmonicFitResult& fit;  // no curve when it failed
};

std::string periodic_graph_source(const PeriodicGraph& graph);

}  // namespace tidemark::stats
