#include "pulse/modes/gold_graph.h"

#include <vector>

#include "graphics/common_options.h"
#include "graphics/plot_writer.h"

namespace tidemark::pulse {

std::string gold_graph(const GoldRun& run) {
  graphics::PlotWriter w;
  w.page("Gold's Method Deconvolution");
  w.panel(run.handle);
  w.x_axis({.label = "Time"});
  graphics::write_common_options(w, {.y_label = run.concentration_header,
                                     .file_name = run.file_name,
                                     .handle = run.handle,
                                     .x = run.time,
                                     .y = run.concentration,
                                     .sd = run.sd,
                                     .positions = run.event_positions});
  std::vector<double> x, s;
  for (std::size_t i = 0; i < run.time.size(); ++i) {
    if (run.used[i] < 1) continue;
    x.push_back(run.time[i]);
    s.push_back(run.result.secretion[i]);
  }
  w.panel("Secretion", 0.5);
  w.x_axis({.label = "Time"});
  w.y_axis({.label = "Secretion"});
  w.begin_series("Secretion");
  w.line(graphics::Dash::kSolid);
  w.begin_option("Show Secretion Steps", graphics::When::kChecked, false);
  w.steps();
  w.end_option();
  w.data(x, s);
  return w.text();
}

}  // namespace tidemark::pulse
