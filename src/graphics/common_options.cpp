#include "graphics/common_options.h"

#include <fmt/format.h>

namespace tidemark::graphics {

namespace {

// Writes the lines of `body` inside a block drawn when `label` is checked.
template <typename Body>
void when_checked(PlotWriter& w, std::string_view label, bool default_checked, Body body) {
  w.begin_option(label, When::kChecked, default_checked);
  body();
  w.end_option();
}

void write_y_axes(PlotWriter& w, const CommonGraph& g) {
  const AxisSpec linear{.label = std::string(g.y_label)};
  AxisSpec log = linear;
  log.scale = Scale::kLog;
  when_checked(w, kLogScale, g.defaults.log_scale, [&] { w.y_axis(log); });
  w.begin_option(kLogScale, When::kNotChecked);
  w.y_axis(linear);
  w.end_option();
}

void write_data_series(PlotWriter& w, const CommonGraph& g) {
  const CommonDefaults& d = g.defaults;
  w.begin_series(g.handle.empty() ? std::string_view("Data") : g.handle);
  w.colour(kBlack);
  when_checked(w, kShowDataPoints, d.data_points, [&] { w.symbol(Symbol::kCircle); });
  when_checked(w, kShowConnectingCurve, d.connecting_curve, [&] { w.line(Dash::kSolid); });
  if (!g.sd.empty()) when_checked(w, kShowErrorBars, d.error_bars, [&] { w.error_bars(); });
  const bool show = g.pulse_family || g.show_missing_label;
  when_checked(w, show ? kShowMissingValues : kMarkMissingValues, d.missing_values,
               [&] { w.mark_missing(); });
  w.data(g.x, g.y, g.sd);
}

void write_events(PlotWriter& w, const CommonGraph& g) {
  if (g.pulse_family) {
    when_checked(w, kPositionCrosshairs, g.defaults.position_markers, [&] {
      for (const Crosshair& c : g.crosshairs) w.crosshair(c.x, c.y, c.dx, c.dy);
    });
    return;
  }
  when_checked(w, kPositionMarkers, g.defaults.position_markers, [&] {
    int n = 0;
    for (double x : g.positions) w.vline(x, fmt::format("{}", ++n));
  });
}

}  // namespace

void write_common_options(PlotWriter& w, const CommonGraph& g) {
  write_y_axes(w, g);
  write_data_series(w, g);
  write_events(w, g);
  when_checked(w, kShowFileName, g.defaults.file_name,
               [&] { w.text_at_page(0.01, 0.01, g.file_name, Align::kLeft); });
  when_checked(w, kShowFileHandle, g.defaults.file_handle, [&] {
    w.text_at_page(0.99, 0.01, g.handle_text.empty() ? g.handle : g.handle_text, Align::kRight);
  });
}

}  // namespace tidemark::graphics
