#pragma once
// The Correlation graph: a page of three panels against "LAG (units of time)", each on
// a y axis from -1.0 to 1.0 with the 95 % band ±2 / sqrt(N) ("C.I. 95% Two-Sided")
// in colour: the autocorrelations with their standard errors as error bars ("ACF A",
// "ACF B") and the partial autocorrelations ("PACF A", "PACF B", A and B being the
// handles); the cross-correlations; Kendall's tau. Below them one panel per series
// with the options every mode's graph shares. Undefined correlations are gaps.
#include <string>
#include <string_view>

#include "data/dataset.h"
#include "stats/correlation_analysis.h"

namespace tidemark::stats {

inline constexpr std::string_view kCorrelationGraphTitle = "Cross-Correlation";
inline constexpr std::string_view kLagAxis = "LAG (units of time)";
inline constexpr std::string_view kBandName = "C.I. 95% Two-Sided";

// The graph source of `analysis` of the series of `a` and `b`: `n` points each, time
// step `delta_t`.
std::string correlation_graph(const CorrelationAnalysis& analysis, const data::DataSet& a,
                              const data::DataSet& b, int n, double delta_t);

}  // namespace tidemark::stats
