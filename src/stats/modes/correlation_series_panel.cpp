#include "stats/modes/correlation_series_panel.h"

#include <string>

#include "graphics/common_options.h"

namespace tidemark::stats {

namespace {

// "a  vs. b", or nothing when both are empty.
std::string both(const std::string& a, const std::string& b) {
  return a.empty() && b.empty() ? std::string() : a + "  vs. " + b;
}

void series_panel(graphics::PlotWriter& w, const data::DataSet& set, std::string_view file_names,
                  std::string_view handles, double height, std::span<const double> positions) {
  w.panel(set.handle.empty() ? set.file_name : set.handle, height);
  w.x_axis({.label = set.headers[data::kX].empty() ? "TIME" : set.headers[data::kX]});
  graphics::write_common_options(w, {.file_name = file_names,
                                     .handle = set.handle,
                                     .handle_text = handles,
                                     .x = set.x(),
                                     .y = set.y(),
                                     .sd = set.dy(),
                                     .positions = positions});
}

}  // namespace

void series_panels(graphics::PlotWriter& w, const data::DataSet& a, const data::DataSet& b,
                   double height, std::span<const double> a_positions,
                   std::span<const double> b_positions) {
  const std::string file_names = both(a.file_name, b.file_name);
  const std::string handles = both(a.handle, b.handle);
  series_panel(w, a, file_names, handles, height, a_positions);
  series_panel(w, b, file_names, handles, height, b_positions);
}

}  // namespace tidemark::stats
