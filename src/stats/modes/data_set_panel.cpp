#include "stats/modes/data_set_panel.h"

#include "graphics/common_options.h"

namespace tidemark::stats {

void write_data_set_panel(graphics::PlotWriter& w, const data::DataSet& set) {
  w.panel(set.handle);
  w.x_axis({.label = set.headers[data::kX].empty() ? "TIME" : set.headers[data::kX]});
  graphics::write_common_options(w, {.y_label = set.concentration_header(),
                                     .file_name = set.file_name,
                                     .handle = set.handle,
                                     .x = set.x(),
                                     .y = set.y(),
                                     .sd = set.dy()});
}

}  // namespace tidemark::stats
