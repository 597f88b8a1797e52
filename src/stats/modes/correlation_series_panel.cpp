#include "stats/modes/correlation_series_panel.h"

#include "graphics/common_options.h"

namespace tidemark::stats {

void series_panel(graphics::PlotWriter& w, const data::DataSet& set, std::string_view file_names,
                  double height, std::span<const double> positions) {
  w.panel(set.handle.empty() ? set.file_name : set.handle, height);
  w.x_axis({.label = set.headers[data::kX].empty() ? "TIME" : set.headers[data::kX]});
  graphics::write_common_options(w, {.file_name = file_names,
                                     .handle = set.handle,
                                     .x = set.x(),
                                     .y = set.y(),
                                     .sd = set.dy(),
                                     .positions = positions});
}

}  // namespace tidemark::stats
