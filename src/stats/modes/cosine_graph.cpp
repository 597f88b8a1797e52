#include "stats/modes/cosine_graph.h"

#include <vector>

#include "core/missing.h"
#include "graphics/plot_writer.h"
#include "stats/modes/data_set_panel.h"

namespace tidemark::stats {

namespace {

// The fitted curve over the series' time range, in kCosineCurvePoints steps.
void write_curve(graphics::PlotWriter& w, const CosineGraph& graph) {
  const std::vector<float>& x = graph.set.x();
  if (!graph.fitted || x.empty()) return;
  std::vector<double> t, y;
  const double first = x.front(), last = x.back();
  for (int i = 0; i <= kCosineCurvePoints; ++i) {
    t.push_back(first + (last - first) * i / kCosineCurvePoints);
    y.push_back(cosine_value(graph.values, t.back()));
  }
  w.begin_option("Show Fitted Curve", graphics::When::kChecked, true);
  w.series("Cosine Fit", {.line = graphics::Dash::kSolid}, t, y);
  w.end_option();
}

void write_scan(graphics::PlotWriter& w, const CosineGraph& graph) {
  std::vector<double> period, percent;
  for (std::size_t k = 0; k < graph.scan_period.size(); ++k) {
    if (core::is_missing(graph.scan_percent[k])) continue;
    period.push_back(graph.scan_period[k]);
    percent.push_back(graph.scan_percent[k]);
  }
  w.panel("Period Scan", 0.6);
  w.x_axis({.label = "Trial Period"});
  // 0 to 100 % with the margin of an automatic axis (4 % of the span each side), so that
  // points at 0 and at the cap of 100 are drawn whole rather than cut by the frame.
  w.y_axis({.label = "% Variance Remaining", .low = -4.0, .high = 104.0});
  if (!period.empty()) {
    w.series("Scan", {.symbol = graphics::Symbol::kCircle, .line = graphics::Dash::kSolid}, period,
             percent);
  }
}

}  // namespace

std::string cosine_graph_source(const CosineGraph& graph) {
  graphics::PlotWriter w;
  w.page("Cosine Analysis");
  write_data_set_panel(w, graph.set);
  write_curve(w, graph);
  write_scan(w, graph);
  return w.text();
}

}  // namespace tidemark::stats
