#include "stats/modes/concordance_graph.h"

#include <vector>

#include "core/missing.h"
#include "graphics/plot_writer.h"
#include "stats/modes/correlation_series_panel.h"

namespace tidemark::stats {
namespace {

using Values = std::vector<double>;

// How far above its row of events a series' name stands, in rows (1 apart).
constexpr double kRowNameAbove = 0.25;
constexpr double kNameInset = 0.005;  // of the time axis, from its left end

void event_row(graphics::PlotWriter& w, std::string_view name, const Values& times, double level) {
  w.series(name, {.symbol = graphics::Symbol::kDownTriangle, .colour = graphics::kVermilion}, times,
           Values(times.size(), level));
}

// Each row of events named by its series, above the row near the axis's left end.
void row_names(graphics::PlotWriter& w, const data::DataSet& a, const data::DataSet& b,
               const TimeAxis& time) {
  if (!time.low) return;
  for (const auto& [set, level] : {std::pair{&a, 1.0}, std::pair{&b, 0.0}}) {
    const std::string& name = set->handle.empty() ? set->file_name : set->handle;
    w.text_at_data(*time.low + kNameInset * (*time.high - *time.low), level + kRowNameAbove, name);
  }
}

}  // namespace

std::string concordance_graph(const ConcordanceReport& r, const data::DataSet& a,
                              const data::DataSet& b) {
  const TimeAxis time = shared_time_axis(a, b);
  graphics::PlotWriter w;
  w.page(kConcordanceTitle);
  w.panel("", 0.5);  // the page title names it
  w.x_axis({.label = a.headers[data::kX].empty() ? "TIME" : a.headers[data::kX],
            .low = time.low,
            .high = time.high});
  w.y_axis({.label = "Series", .low = -0.5, .high = 1.5, .tick_step = 1.0});
  row_names(w, a, b, time);
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
  series_panels(w, a, b,
                {.height = 0.5,
                 .a_positions = r.a.events,
                 .b_positions = r.b.events,
                 .time_axis = time,
                 .show_missing_label = true});
  return w.text();
}

}  // namespace tidemark::stats
