#include "stats/modes/xapen_graph.h"

#include <vector>

#include "graphics/common_options.h"
#include "graphics/plot_writer.h"

namespace tidemark::stats {

namespace {

void series_panel(graphics::PlotWriter& w, const data::DataSet& set, std::string_view file_names) {
  w.panel(set.handle.empty() ? set.file_name : set.handle, 0.5);
  w.x_axis({.label = set.headers[data::kX].empty() ? "TIME" : set.headers[data::kX]});
  graphics::write_common_options(
      w,
      {.file_name = file_names, .handle = set.handle, .x = set.x(), .y = set.y(), .sd = set.dy()});
}

}  // namespace

std::string xapen_graph(const XApEnReport& report, const data::DataSet& a, const data::DataSet& b) {
  std::vector<double> lags, first, second;
  for (int lag = 1 - report.hits.n; lag < report.hits.n; ++lag) {
    lags.push_back(lag);
    first.push_back(static_cast<double>(report.hits.at(0, lag)));
    second.push_back(static_cast<double>(report.hits.at(1, lag)));
  }
  graphics::PlotWriter w;
  w.page(kXApEnGraphTitle);
  w.panel(kXApEnGraphTitle);
  w.x_axis({.label = "Lag (samples)"});
  w.y_axis({.label = "Matches"});
  w.series("m=0", {.line = graphics::Dash::kSolid, .steps = true}, lags, first);
  w.begin_option(kShowSecondLength, graphics::When::kChecked, true);
  w.series("m=1", {.line = graphics::Dash::kDash, .steps = true}, lags, second);
  w.end_option();
  const std::string names = report.a_name + "  vs. " + report.b_name;
  series_panel(w, a, names);
  series_panel(w, b, names);
  return w.text();
}

}  // namespace tidemark::stats
