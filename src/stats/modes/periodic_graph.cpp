#include "stats/modes/periodic_graph.h"

#include <algorithm>
#include <vector>

#include "core/missing.h"
#include "graphics/plot_writer.h"
#include "stats/modes/data_set_panel.h"

namespace tidemark::stats {

namespace {

void write_curve(graphics::PlotWriter& w, const PeriodicGraph& graph) {
  const std::vector<float>& x = graph.set.x();
  if (!graph.fit.ok() || x.empty()) return;
  const auto [low, high] = std::minmax_element(x.begin(), x.end());
  std::vector<double> t, y;
  for (int i = 0; i <= kPeriodicCurvePoints; ++i) {
    t.push_back(*low + static_cast<double>(*high - *low) * i / kPeriodicCurvePoints);
    y.push_back(harmonic_value(graph.fit, t.back()));
  }
  w.begin_option("Show Fitted Curve", graphics::When::kChecked, true);
  w.series("Rhythm Fit", {.line = graphics::Dash::kSolid}, t, y);
  w.end_option();
}

void write_periodogram(graphics::PlotWriter& w, const PeriodicGraph& graph) {
  const PeriodogramResult& p = graph.periodogram;
  w.panel("Periodogram", 0.7);
  w.x_axis({.label = "Trial Period", .scale = graphics::Scale::kLog});
  w.y_axis({.label = "Power", .low = 0.0});
  w.legend(graphics::Place::kTopLeft);
  w.series("Power", {.line = graphics::Dash::kSolid}, p.period, p.power);
  const std::vector<double> ends{p.period.back(), p.period.front()};
  w.begin_option("Show False-Alarm Levels", graphics::When::kChecked, true);
  for (const double fap : {0.05, 0.01}) {
    const double level = baluev_level(fap, graph.peaks.baluev);
    w.series(fap == 0.05 ? "FAP 0.05" : "FAP 0.01",
             {.line = fap == 0.05 ? graphics::Dash::kDash : graphics::Dash::kDot}, ends,
             std::vector<double>{level, level});
  }
  w.end_option();
  std::vector<double> period, power;
  for (const PeriodicPeak& peak : graph.peaks.peaks) {
    period.push_back(peak.period);
    power.push_back(peak.power);
  }
  if (period.empty()) return;
  w.begin_option("Show Peaks", graphics::When::kChecked, true);
  w.series("Peaks", {.symbol = graphics::Symbol::kCircle}, period, power);
  w.end_option();
}

}  // namespace

std::string periodic_graph_source(const PeriodicGraph& graph) {
  graphics::PlotWriter w;
  w.page("Periodic Rhythm Analysis");
  write_data_set_panel(w, graph.set);
  write_curve(w, graph);
  if (graph.periodogram.ok()) write_periodogram(w, graph);
  return w.text();
}

}  // namespace tidemark::stats
