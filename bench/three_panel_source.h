#pragma once
// The graph of the speed targets: three panels of `points` rows each, a pulsatile
// series with symbols, connecting curve and error bars (the third on a log axis).
#include <cmath>
#include <string>
#include <vector>

#include "graphics/plot_writer.h"

namespace tidemark::bench_support {

inline std::string three_panel_source(int points) {
  graphics::PlotWriter w;
  w.page("Benchmark page");
  for (int p = 0; p < 3; ++p) {
    std::vector<double> x, y, e;
    for (int i = 0; i < points; ++i) {
      const double t = i * 1440.0 / points;
      x.push_back(t);
      y.push_back(3 + 2 * std::sin(t / 60.0 + p) + 0.3 * std::sin(t * 1.7));
      e.push_back(0.2 + 0.01 * (i % 7));
    }
    w.panel("Panel " + std::to_string(p + 1));
    w.x_axis({.label = "Time (min)"});
    w.y_axis({.label = "Concentration",
              .scale = p == 2 ? graphics::Scale::kLog : graphics::Scale::kLinear});
    w.series(
        "Series",
        {.symbol = graphics::Symbol::kCircle, .line = graphics::Dash::kSolid, .error_bars = true},
        x, y, e);
  }
  return w.text();
}

}  // namespace tidemark::bench_support
