#include "pulse/modes/gold_graph.h"

#include <vector>

#include "graphics/common_options.h"
#include "graphics/plot_writer.h"

namespace tidemark::pulse {

std::string gold_graph(const GoldRun& run) {
  const GoldRunInput& in = run.input;
  const GoldRunOutput& out = run.output;
  graphics::PlotWriter w;
  w.page("Gold's Method Deconvolution");
  w.panel(in.handle);
  w.x_axis({.label = "Time"});
  graphics::write_common_options(w, {.y_label = in.concentration_header,
                                     .file_name = in.file_name,
                                     .handle = in.handle,
                                     .x = in.time,
                                     .y = in.concentration,
                                     .sd = in.sd,
                                     .positions = in.event_positions});
  std::vector<double> x, s;
  for (std::size_t i = 0; i < in.time.size(); ++i) {
    if (in.used[i] < 1) continue;
    x.push_back(in.time[i]);
    s.push_back(out.result.secretion[i]);
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
