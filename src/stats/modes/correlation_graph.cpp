#include "stats/modes/correlation_graph.h"

#include <cmath>
#include <vector>

#include "core/missing.h"
#include "graphics/plot_writer.h"
#include "stats/modes/correlation_series_panel.h"

namespace tidemark::stats {
namespace {

using graphics::PlotWriter;
using Values = std::vector<double>;

Values defined_or_missing(const Correlations& c, std::size_t from = 0) {
  Values v;
  for (std::size_t i = from; i < c.size(); ++i) v.push_back(c[i] ? *c[i] : core::kMissing);
  return v;
}

// Lags first .. last times delta_t.
Values lag_times(int first, int last, double delta_t) {
  Values t;
  for (int k = first; k <= last; ++k) t.push_back(k * delta_t);
  return t;
}

// A correlation panel: title, lag axis, y from -1 to 1, and the band ±bound over
// [low, high] as one series broken by a missing point.
void correlation_panel(PlotWriter& w, std::string_view title, double low, double high,
                       double bound) {
  w.panel(title);
  w.x_axis({.label = std::string(kLagAxis)});
  w.y_axis({.label = std::string(title), .low = -1.0, .high = 1.0});
  const Values x = {low, high, high, low, high};
  const Values y = {bound, bound, core::kMissing, -bound, -bound};
  w.series(kBandName, {.line = graphics::Dash::kDash, .colour = graphics::kVermilion}, x, y);
}

void autocorrelation_series(PlotWriter& w, const SeriesCorrelation& s, const std::string& handle,
                            const Values& lags) {
  const Values se(s.acf.standard_error.begin() + 1, s.acf.standard_error.end());
  w.series("ACF " + handle,
           {.symbol = graphics::Symbol::kAuto, .line = graphics::Dash::kSolid, .error_bars = true},
           lags, defined_or_missing(s.acf.correlation, 1), se);
  w.series("PACF " + handle, {.symbol = graphics::Symbol::kAuto, .line = graphics::Dash::kDot},
           lags, defined_or_missing(s.pacf.partial));
}

}  // namespace

std::string correlation_graph(const CorrelationAnalysis& analysis, const data::DataSet& a,
                              const data::DataSet& b, int n, double delta_t) {
  const int m = analysis.max_lag;
  const double bound = 2 / std::sqrt(static_cast<double>(n));
  const Values positive = lag_times(1, m, delta_t), both = lag_times(-m, m, delta_t);
  PlotWriter w;
  w.page(kCorrelationGraphTitle);
  correlation_panel(w, "ACF and PACF", 0, m * delta_t, bound);
  autocorrelation_series(w, analysis.a, a.handle, positive);
  autocorrelation_series(w, analysis.b, b.handle, positive);
  correlation_panel(w, "Cross-Correlation", -m * delta_t, m * delta_t, bound);
  w.series("CCF", {.symbol = graphics::Symbol::kAuto, .line = graphics::Dash::kSolid}, both,
           defined_or_missing(analysis.cross.correlation));
  correlation_panel(w, "Kendall's Tau", -m * delta_t, m * delta_t, bound);
  Values tau;
  for (const auto& k : analysis.kendall) tau.push_back(k.tau ? *k.tau : core::kMissing);
  w.series("Kendall's Tau", {.symbol = graphics::Symbol::kAuto, .line = graphics::Dash::kSolid},
           both, tau);
  series_panels(w, a, b, 0.5);
  return w.text();
}

}  // namespace tidemark::stats
