#include "pulse/modes/cluster8_graph.h"

#include <vector>

#include "core/fortran_format.h"
#include "core/text.h"
#include "graphics/common_options.h"

namespace tidemark::pulse {
namespace {

using graphics::Colour;
using graphics::PlotWriter;
using graphics::Symbol;
using graphics::When;

constexpr Colour kYellow = {0xFFFF00, false};
constexpr Colour kRed = {0xFF0000, false};

struct Points {
  std::vector<float> x, y;
};

// The grid times and means of the listed 1-based points.
Points at_points(const Cluster8Grid& g, const std::vector<int>& points) {
  Points p;
  for (int j : points) {
    p.x.push_back(g.times[j]);
    p.y.push_back(g.mean[j]);
  }
  return p;
}

void marks(PlotWriter& w, const char* name, const graphics::SeriesStyle& style, const Points& p) {
  w.series(name, style, p.x, p.y);
}

// The outliers of one kind as symbols, or the note saying there are none.
void outliers(PlotWriter& w, const Cluster8Grid& g, const std::vector<int>& points,
              const char* name, Colour colour, const char* none) {
  if (points.empty()) return w.note(none);
  marks(w, name, {.symbol = Symbol::kCircle, .symbol_size = kOutlierSymbolPoints, .colour = colour},
        at_points(g, points));
}

}  // namespace

std::string cluster8_graph(const data::DataSet& set, const Cluster8Result& r,
                           const Cluster8Settings& s) {
  std::vector<int> peak_points, valley_points;
  std::vector<double> peak_times;
  for (const Cluster8Peak& p : r.peaks) {
    peak_points.push_back(p.position);
    peak_times.push_back(r.grid.times[p.position]);
  }
  for (const Cluster8Valley& v : r.valleys) valley_points.push_back(v.position);

  PlotWriter w;
  w.page("Cluster8 Pulse Detection");
  w.panel(set.handle);
  w.x_axis({.label = set.headers[data::kX].empty() ? "Time" : set.headers[data::kX]});
  w.legend(graphics::Place::kTopRight);
  graphics::write_common_options(w, {.y_label = set.concentration_header(),
                                     .file_name = set.file_name,
                                     .handle = set.handle,
                                     .x = set.x(),
                                     .y = set.y(),
                                     .sd = set.dy(),
                                     .positions = peak_times});
  w.begin_option(kShowParameters, When::kChecked, true);
  w.note("Outlier were tested with a Half-Life of " +
         std::string(core::trim(core::format_g15_5(s.half_life))) + " and a critical T-score of " +
         std::string(core::trim(core::format_g15_5(s.outlier_t))));
  w.end_option();
  // The outlier circles first, so that the peak and nadir triangles are drawn over them.
  w.begin_option(kShowOutliers, When::kChecked, true);
  outliers(w, r.grid, r.outliers.questionable, "Questionable Outliers", kYellow,
           "No Questionable Outliers Were Found.");
  outliers(w, r.grid, r.outliers.probable, "Probable Outliers", kRed,
           "No Probable Outliers Were Found.");
  w.end_option();
  w.begin_option(kShowCluster8Results, When::kChecked, true);
  marks(w, "Peaks", {.symbol = Symbol::kTriangle, .symbol_size = 8, .colour = graphics::kVermilion},
        at_points(r.grid, peak_points));
  marks(w, "Nadirs", {.symbol = Symbol::kDownTriangle, .symbol_size = 8, .colour = graphics::kBlue},
        at_points(r.grid, valley_points));
  w.end_option();
  return w.text();
}

}  // namespace tidemark::pulse
