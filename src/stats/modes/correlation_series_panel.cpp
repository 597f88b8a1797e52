#include "stats/modes/correlation_series_panel.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/missing.h"
#include "graphics/common_options.h"

namespace tidemark::stats {

namespace {

constexpr double kTimePad = 0.04;  // of the span, each side: as an automatic axis

// "a  vs. b", or nothing when both are empty.
std::string both(const std::string& a, const std::string& b) {
  return a.empty() && b.empty() ? std::string() : a + "  vs. " + b;
}

void series_panel(graphics::PlotWriter& w, const data::DataSet& set, std::string_view file_names,
                  std::string_view handles, std::span<const double> positions,
                  const SeriesPanelOptions& o) {
  w.panel(set.handle.empty() ? set.file_name : set.handle, o.height);
  w.x_axis({.label = set.headers[data::kX].empty() ? "TIME" : set.headers[data::kX],
            .low = o.time_axis.low,
            .high = o.time_axis.high});
  graphics::write_common_options(w, {.y_label = set.concentration_header(),
                                     .file_name = file_names,
                                     .handle = set.handle,
                                     .handle_text = handles,
                                     .x = set.x(),
                                     .y = set.y(),
                                     .sd = set.dy(),
                                     .positions = positions,
                                     .show_missing_label = o.show_missing_label});
}

}  // namespace

TimeAxis shared_time_axis(const data::DataSet& a, const data::DataSet& b) {
  double low = 0, high = 0;
  bool any = false;
  for (const data::DataSet* set : {&a, &b}) {
    for (const float t : set->x()) {
      if (core::is_missing(t) || !std::isfinite(t)) continue;
      low = any ? std::min<double>(low, t) : t;
      high = any ? std::max<double>(high, t) : t;
      any = true;
    }
  }
  if (!(high > low)) return {};
  const double pad = kTimePad * (high - low);
  return {low - pad, high + pad};
}

void series_panels(graphics::PlotWriter& w, const data::DataSet& a, const data::DataSet& b,
                   const SeriesPanelOptions& options) {
  const std::string file_names = both(a.file_name, b.file_name);
  const std::string handles = both(a.handle, b.handle);
  series_panel(w, a, file_names, handles, options.a_positions, options);
  series_panel(w, b, file_names, handles, options.b_positions, options);
}

}  // namespace tidemark::stats
