#pragma once
// The Correlation mode's listing: the two data sets, the time step, each series' mean
// and variance with its autocorrelation table, then the cross-correlation and Kendall's
// tau tables.
//
//    A-series = a.dat   B-series = b.dat
//    Delta Time Interval =      10.000
//    Mean of A-series =      4.3333
//    Variance of A-series =      5.8889
//    S.E. per Moran, 1947
//     Lag   Autocovar       Autocorr         S.E.           PACF
//       1    -0.45370       -7.70440E-02    0.25588       -7.70440E-02
//   ...
// Lags are written I5 and numbers 1PG15.5; tau takes 1PG20.5 under its heading. A
// correlation that is undefined (a series without variance) reads "Undefined".
#include <string>
#include <string_view>

#include "stats/correlation_analysis.h"

namespace tidemark::stats {

// The listing of `analysis` of the data sets named `a_name` and `b_name`, of time step
// `delta_t`.
std::string correlation_listing(const CorrelationAnalysis& analysis, std::string_view a_name,
                                std::string_view b_name, double delta_t);

}  // namespace tidemark::stats
