#include "stats/modes/concordance_graph.h"

#include <vector>

#include "core/missing.h"
#include "graphics/plot_writer.h"
#include "stats/modes/correlation_series_panel.h"

namespace tidemark::stats {
namespace {

using Values = std::vector<double>;

void event_row(graphics::PlotWriter& w, std::string_view name, const Values& times, double level) {
  w.series(name, {.symbol = graphics::Symbol::kDownTriangle, .colour = graphics::kVermilion}, times,
           Values(times.size(), level));
}

}  // namespace

std::string concordance_graph(const ConcordanceReport& r, const data::DataSet& a,
                              const data::DataSet& b) {
  graphics::PlotWriter w;
  w.page(kConcordanceTitle);
  w.panel(kConcordanceTitle, 0.5);
  w.x_axis({.label = a.headers[data::kX].empty() ? "TIME" : a.headers[data::kX]});
  w.y_axis({.label = "Series", .low = -0.5, .high = 1.5, .tick_step = 1.0});
  w.begin_option(kShowSecretionEvents, graphics::When::kChecked, true);
  event_row(w, "Events A", r.a.events, 1.0);
  event_row(w, "Events B", r.b.events, 0.0);
  w.end_option();
  // Each coincidence as a segment from (a, 1) to (b, 0), the segments kept apart by a
  // missing point.
  Values x, y;
  for (const auto& [i, j] : r.pairs) {
    x.insert(x.end(), {r.a.events[i], r.b.events[j], r.b.events[j]});
    y.insert(y.end(), {1.0, 0.0, core::kMissing});
  }
  w.begin_option(kShowCoincidences, graphics::When::kChecked, true);
  w.series("Coincidences", {.line = graphics::Dash::kSolid, .colour = graphics::kBlue}, x, y);
  w.end_option();
  series_panels(w, a, b, 0.5, r.a.events, r.b.events);
  return w.text();
}

}  // namespace tidemark::stats
