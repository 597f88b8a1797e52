#include "render/legend_place.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/missing.h"
#include "render/legend_rows.h"
#include "render/text.h"

namespace tidemark::render {

namespace {

using graphics::Place;

// Room kept around a point: half a symbol and a little.
constexpr double kPointClear = 4;

bool covers(const Box& b, double x, double y) {
  return x >= b.x - kPointClear && x <= b.x + b.width + kPointClear && y >= b.y - kPointClear &&
         y <= b.y + b.height + kPointClear;
}

bool drawable(double v) {
  return std::isfinite(v) && !core::is_missing(v);
}

// True when the box hides a point of a series (or the end of its error bar) that lies
// in the plot area.
bool hides_data(const Box& b, const Frame& f, const graphics::Panel& panel) {
  for (const graphics::Series& s : panel.series) {
    for (std::size_t i = 0; i < s.x.size() && i < s.y.size(); ++i) {
      if (!drawable(s.x[i]) || !drawable(s.y[i])) continue;
      const double px = f.px(s.x[i]);
      if (covers(b, px, f.py(s.y[i]))) return true;
      if (s.style.error_bars && i < s.err.size() && drawable(s.err[i]) &&
          (covers(b, px, f.py(s.y[i] + s.err[i])) || covers(b, px, f.py(s.y[i] - s.err[i])))) {
        return true;
      }
    }
  }
  for (const graphics::Label& l : panel.texts) {
    if (covers(b, f.px(l.x), f.py(l.y))) return true;
  }
  return false;
}

}  // namespace

Box legend_box(cairo_t* cr, const Frame& f, const graphics::Panel& panel,
               const RenderOptions& options, Place place) {
  const double row = legend_row_height(cr, options);
  use_font(cr, options, Role::kNote);
  double widest = 0;
  int rows = 0;
  for (const graphics::Series& s : panel.series) {
    if (s.name.empty()) continue;
    widest = std::max(widest, text_width(cr, s.name));
    ++rows;
  }
  if (rows == 0) return {};
  const double w = 2 * kLegendPad + kLegendSample + kGap + widest;
  const double h = 2 * kLegendPad + rows * row;
  const bool left = place == Place::kTopLeft || place == Place::kBottomLeft;
  const bool top = place == Place::kTopLeft || place == Place::kTopRight;
  const double x = left ? f.left + kLegendInset : f.right() - kLegendInset - w;
  // A legend at the top stays below the labels of the vertical markers.
  const bool labelled = std::any_of(panel.markers.begin(), panel.markers.end(),
                                    [](const graphics::Marker& m) { return !m.label.empty(); });
  const double below_labels = labelled ? row : 0;
  const double y = top ? f.top + kLegendInset + below_labels : f.bottom() - kLegendInset - h;
  return {x, y, w, h};
}

graphics::Plot with_legends_placed(cairo_t* cr, const graphics::Plot& plot,
                                   const RenderOptions& options) {
  graphics::Plot placed = plot;
  const PageLayout page = lay_out(cr, plot, options);
  for (std::size_t i = 0; i < placed.panels.size(); ++i) {
    graphics::Panel& panel = placed.panels[i];
    if (panel.legend == Place::kNone || panel.legend == Place::kBelow) continue;
    const std::array<Place, 5> tried{panel.legend, Place::kTopRight, Place::kTopLeft,
                                     Place::kBottomRight, Place::kBottomLeft};
    const auto free = std::find_if(tried.begin(), tried.end(), [&](Place p) {
      const Box box = legend_box(cr, page.frames[i], panel, options, p);
      return !hides_data(box, page.frames[i], panel);
    });
    panel.legend = free == tried.end() ? Place::kBelow : *free;
  }
  return placed;
}

}  // namespace tidemark::render
