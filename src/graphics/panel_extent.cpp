#include "graphics/panel_extent.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "core/missing.h"

namespace tidemark::graphics {

double bar_width(const Series& s) {
  if (s.style.bar_width > 0) return s.style.bar_width;
  std::vector<double> xs;
  xs.reserve(s.x.size());
  for (double v : s.x) {
    if (std::isfinite(v) && !core::is_missing(v)) xs.push_back(v);
  }
  std::sort(xs.begin(), xs.end());
  double smallest = std::numeric_limits<double>::infinity();
  for (std::size_t i = 1; i < xs.size(); ++i) {
    const double gap = xs[i] - xs[i - 1];
    if (gap > 0) smallest = std::min(smallest, gap);
  }
  return std::isfinite(smallest) ? 0.8 * smallest : 1.0;
}

PanelExtent panel_extent(const Panel& panel) {
  PanelExtent e{Extent(panel.x_axis.scale), Extent(panel.y_axis.scale)};
  for (const Series& s : panel.series) {
    const double half_bar = s.style.bars ? bar_width(s) / 2 : 0;
    if (s.style.bars && panel.y_axis.scale == Scale::kLinear) e.y.add(0);
    for (std::size_t i = 0; i < s.x.size(); ++i) {
      if (!e.x.drawable(s.x[i])) continue;
      if (s.style.mark_missing && core::is_missing(s.y[i])) e.x.add(s.x[i]);
      if (!e.y.drawable(s.y[i])) continue;
      e.x.add(s.x[i] - half_bar);
      e.x.add(s.x[i] + half_bar);
      e.y.add(s.y[i]);
      if (s.style.error_bars && !core::is_missing(s.err[i])) {
        e.y.add(s.y[i] - std::abs(s.err[i]));
        e.y.add(s.y[i] + std::abs(s.err[i]));
      }
    }
  }
  for (const Marker& m : panel.markers) e.x.add(m.x);
  for (const Crosshair& c : panel.crosshairs) {
    e.x.add(c.x - c.dx);
    e.x.add(c.x + c.dx);
    e.y.add(c.y - c.dy);
    e.y.add(c.y + c.dy);
  }
  return e;
}

}  // namespace tidemark::graphics
