#pragma once
// The Cluster8 graph template: the data set with the common options, and the three
// options of Cluster8 as option blocks: "Show Cluster8 Results" (peaks and nadirs),
// "Show Parameters" (the outlier test's half-life and critical T-score) and "Show
// Outliers" (questionable in yellow, probable in red, or a line saying there are none).
#include <string>

#include "data/dataset.h"
#include "pulse/cluster8.h"

namespace tidemark::pulse {

inline constexpr const char* kShowCluster8Results = "Show Cluster8 Results";
inline constexpr const char* kShowParameters = "Show Parameters";
inline constexpr const char* kShowOutliers = "Show Outliers";

// The outlier symbols: 0.15 inch, written in points.
inline constexpr double kOutlierSymbolPoints = 0.15 * 72.0;

// The graph source of one successful run on `set`.
std::string cluster8_graph(const data::DataSet& set, const Cluster8Result& result,
                           const Cluster8Settings& settings);

}  // namespace tidemark::pulse
