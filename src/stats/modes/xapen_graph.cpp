#include "stats/modes/xapen_graph.h"

#include <vector>

#include "graphics/plot_writer.h"
#include "stats/modes/correlation_series_panel.h"

namespace tidemark::stats {

std::string xapen_graph(const XApEnReport& report, const data::DataSet& a, const data::DataSet& b) {
  std::vector<double> lags, first, second;
  for (int lag = 1 - report.hits.n; lag < report.hits.n; ++lag) {
    lags.push_back(lag);
    first.push_back(static_cast<double>(report.hits.at(0, lag)));
    second.push_back(static_cast<double>(report.hits.at(1, lag)));
  }
  graphics::PlotWriter w;
  w.page(kXApEnGraphTitle);
  w.panel("");  // the page title names it
  w.x_axis({.label = "Lag (samples)"});
  w.y_axis({.label = "Matches"});
  w.legend(graphics::Place::kBelow);
  w.series("m=0", {.line = graphics::Dash::kSolid, .steps = true}, lags, first);
  w.begin_option(kShowSecondLength, graphics::When::kChecked, true);
  w.series("m=1", {.line = graphics::Dash::kDash, .steps = true}, lags, second);
  w.end_option();
  series_panels(w, a, b, {.height = 0.5});
  return w.text();
}

}  // namespace tidemark::stats
