#pragma once
// The graph of the Cosine mode: the series with the fitted curve over it (the common
// options of every mode's graph, plus "Show Fitted Curve"), and below it the panel of
// the period scan, percent of variance remaining against trial period.
#include <span>
#include <string>

#include "data/dataset.h"
#include "stats/cosine.h"

namespace tidemark::stats {

// Points on the fitted curve per series: enough to draw a smooth cosine.
inline constexpr int kCosineCurvePoints = 400;

struct CosineGraph {
  const data::DataSet& set;
  // The fitted values; no curve is drawn when `fitted` is false.
  CosineValues values{};
  bool fitted = false;
  std::span<const double> scan_period{};  // missing rows are left out
  std::span<const double> scan_percent{};
};

// The graph source, in the plot description language.
std::string cosine_graph_source(const CosineGraph& graph);

}  // namespace tidemark::stats
