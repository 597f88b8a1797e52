#include "stats/modes/correlation_graph.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/missing.h"
#include "graphics/plot_writer.h"
#include "stats/modes/correlation_series_panel.h"

namespace tidemark::stats {
namespace {

using graphics::PlotWriter;
using graphics::Symbol;
using Values = std::vector<double>;

// The series panels are tall enough for a full y label.
constexpr double kSeriesPanelHeight = 0.75;

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

// A correlation panel's y range: -1 to 1, which correlations never leave, widened to
// what else the panel draws (error bar ends, a band beyond ±1 for very short series).
class YRange {
 public:
  explicit YRange(double bound) : low_(std::min(-1.0, -bound)), high_(std::max(1.0, bound)) {}
  // Takes in y - err .. y + err of every defined point (err empty: y alone).
  void cover(const Values& y, const Values& err = {}) {
    for (std::size_t i = 0; i < y.size(); ++i) {
      if (core::is_missing(y[i])) continue;
      const double e = i < err.size() ? std::abs(err[i]) : 0.0;
      low_ = std::min(low_, y[i] - e);
      high_ = std::max(high_, y[i] + e);
    }
  }
  double low() const { return low_; }
  double high() const { return high_; }

 private:
  double low_, high_;
};

// A correlation panel: title, lag axis, y range, and the band ±bound over [low, high]
// as one series broken by a missing point.
void correlation_panel(PlotWriter& w, std::string_view title, double low, double high, double bound,
                       const YRange& y) {
  w.panel(title);
  w.x_axis({.label = std::string(kLagAxis)});
  w.y_axis({.label = std::string(title), .low = y.low(), .high = y.high()});
  const Values x = {low, high, high, low, high};
  const Values band = {bound, bound, core::kMissing, -bound, -bound};
  w.series(kBandName, {.line = graphics::Dash::kDash, .colour = graphics::kVermilion}, x, band);
}

// One series' autocorrelations and partial autocorrelations: its own colour, the ACF
// a solid curve with error bars, the PACF a dotted one, each with its own symbol.
struct Autocorrelations {
  std::string handle;
  graphics::Colour colour;
  Symbol acf_symbol, pacf_symbol;
  Values acf, se, pacf;
};

Autocorrelations autocorrelations(const SeriesCorrelation& s, const std::string& handle,
                                  graphics::Colour colour, Symbol acf_symbol, Symbol pacf_symbol) {
  return {handle,
          colour,
          acf_symbol,
          pacf_symbol,
          defined_or_missing(s.acf.correlation, 1),
          Values(s.acf.standard_error.begin() + 1, s.acf.standard_error.end()),
          defined_or_missing(s.pacf.partial)};
}

void autocorrelation_series(PlotWriter& w, const Autocorrelations& s, const Values& lags) {
  w.series("ACF " + s.handle,
           {.symbol = s.acf_symbol,
            .line = graphics::Dash::kSolid,
            .colour = s.colour,
            .error_bars = true},
           lags, s.acf, s.se);
  w.series("PACF " + s.handle,
           {.symbol = s.pacf_symbol, .line = graphics::Dash::kDot, .colour = s.colour}, lags,
           s.pacf);
}

// A panel of one correlation against lags -m .. m, in black over the vermilion band.
void lagged_panel(PlotWriter& w, std::string_view title, std::string_view name, const Values& lags,
                  const Values& values, double bound) {
  YRange y(bound);
  y.cover(values);
  correlation_panel(w, title, lags.front(), lags.back(), bound, y);
  w.series(name,
           {.symbol = Symbol::kCircle, .line = graphics::Dash::kSolid, .colour = graphics::kBlack},
           lags, values);
}

}  // namespace

std::string correlation_graph(const CorrelationAnalysis& analysis, const data::DataSet& a,
                              const data::DataSet& b, int n, double delta_t) {
  const int m = analysis.max_lag;
  const double bound = 2 / std::sqrt(static_cast<double>(n));
  const Values positive = lag_times(1, m, delta_t), both = lag_times(-m, m, delta_t);
  PlotWriter w;
  w.page(kCorrelationGraphTitle);

  const Autocorrelations acf_a =
      autocorrelations(analysis.a, a.handle, graphics::kBlack, Symbol::kCircle, Symbol::kTriangle);
  const Autocorrelations acf_b = autocorrelations(analysis.b, b.handle, graphics::kBlue,
                                                  Symbol::kSquare, Symbol::kDownTriangle);
  YRange acf_range(bound);
  for (const Autocorrelations* s : {&acf_a, &acf_b}) {
    acf_range.cover(s->acf, s->se);
    acf_range.cover(s->pacf);
  }
  correlation_panel(w, "ACF and PACF", 0, m * delta_t, bound, acf_range);
  w.legend(graphics::Place::kBelow);
  autocorrelation_series(w, acf_a, positive);
  autocorrelation_series(w, acf_b, positive);

  lagged_panel(w, "Cross-Correlation", "CCF", both, defined_or_missing(analysis.cross.correlation),
               bound);
  Values tau;
  for (const auto& k : analysis.kendall) tau.push_back(k.tau ? *k.tau : core::kMissing);
  lagged_panel(w, "Kendall's Tau", "Kendall's Tau", both, tau, bound);
  series_panels(w, a, b, {.height = kSeriesPanelHeight, .show_missing_label = true});
  return w.text();
}

}  // namespace tidemark::stats
