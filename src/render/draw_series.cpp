#include <algorithm>
#include <cmath>
#include <optional>

#include "core/missing.h"
#include "graphics/panel_extent.h"
#include "render/draw_parts.h"
#include "render/draw_style.h"

namespace tidemark::render {

namespace {

using graphics::Series;

// A row's point on the page.
struct Placed {
  double x = 0;
  double y = 0;
};

// The point, when both values can be placed on the frame's axes.
std::optional<Placed> place(const Frame& f, double x, double y) {
  if (!graphics::drawable_on(f.x.scale, x) || !graphics::drawable_on(f.y.scale, y)) {
    return std::nullopt;
  }
  return Placed{clamp_coordinate(f.px(x)), clamp_coordinate(f.py(y))};
}

// The page y of a value that may not be placeable on a log axis (at or below 0): the
// bottom edge of the area then.
double page_y_or_bottom(const Frame& f, double y) {
  if (!graphics::drawable_on(f.y.scale, y)) return f.bottom();
  return clamp_coordinate(f.py(y));
}

void draw_bars(cairo_t* cr, const Frame& f, const Series& s, const DrawStyle& d) {
  const double half = graphics::bar_width(s) / 2;
  const double base = f.y.scale == graphics::Scale::kLog ? f.bottom() : clamp_coordinate(f.py(0.0));
  for (std::size_t i = 0; i < s.x.size(); ++i) {
    const auto p = place(f, s.x[i], s.y[i]);
    if (!p) continue;
    const double left = clamp_coordinate(f.px(s.x[i] - half));
    const double right = clamp_coordinate(f.px(s.x[i] + half));
    cairo_rectangle(cr, left, std::min(p->y, base), right - left, std::abs(base - p->y));
  }
  set_colour(cr, d.rgb, 0.45);
  cairo_fill_preserve(cr);
  set_colour(cr, d.rgb);
  set_line(cr, graphics::Dash::kSolid, 0.75);
  cairo_stroke(cr);
}

// The curve through the points, broken where a value is missing or cannot be placed;
// a staircase (each value held until the next x) for STEPS.
void draw_curve(cairo_t* cr, const Frame& f, const Series& s, const DrawStyle& d) {
  bool down = false;
  double last_y = 0;
  for (std::size_t i = 0; i < s.x.size(); ++i) {
    const auto p = place(f, s.x[i], s.y[i]);
    if (!p) {
      down = false;
      continue;
    }
    if (!down) {
      cairo_move_to(cr, p->x, p->y);
    } else if (s.style.steps) {
      cairo_line_to(cr, p->x, last_y);
      cairo_line_to(cr, p->x, p->y);
    } else {
      cairo_line_to(cr, p->x, p->y);
    }
    down = true;
    last_y = p->y;
  }
  set_colour(cr, d.rgb);
  set_line(cr, d.dash, d.line_width);
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  cairo_stroke(cr);
}

void draw_error_bars(cairo_t* cr, const Frame& f, const Series& s, const DrawStyle& d) {
  // Thin filled rectangles rather than strokes: the same on paper, and far quicker for
  // thousands of bars.
  constexpr double kWidth = 0.8;
  const double cap = d.symbol == graphics::Symbol::kNone ? 2.0 : 0.4 * d.symbol_size;
  set_colour(cr, d.rgb);
  for (std::size_t i = 0; i < s.x.size(); ++i) {
    const auto p = place(f, s.x[i], s.y[i]);
    if (!p || core::is_missing(s.err[i]) || !std::isfinite(s.err[i])) continue;
    const double e = std::abs(s.err[i]);
    const double top = page_y_or_bottom(f, s.y[i] + e);
    const double bottom = page_y_or_bottom(f, s.y[i] - e);
    cairo_rectangle(cr, p->x - kWidth / 2, top, kWidth, bottom - top);
    cairo_rectangle(cr, p->x - cap, top - kWidth / 2, 2 * cap, kWidth);
    cairo_rectangle(cr, p->x - cap, bottom - kWidth / 2, 2 * cap, kWidth);
    cairo_fill(cr);
  }
}

// Fills (or strokes, for the cross and plus) the symbol at (x, y) with a thin white
// edge that keeps overlapping symbols apart.
void paint_symbol(cairo_t* cr, const DrawStyle& d, double x, double y) {
  const bool closed = add_symbol(cr, d.symbol, x, y, d.symbol_size);
  set_colour(cr, d.rgb);
  if (closed) {
    cairo_fill_preserve(cr);
    cairo_set_source_rgba(cr, 1, 1, 1, 0.9);
    set_line(cr, graphics::Dash::kSolid, 0.5);
  } else {
    set_line(cr, graphics::Dash::kSolid, 1.2);
  }
  cairo_stroke(cr);
}

// True when the point lies in the plot area or on its edge.
bool in_area(const Frame& f, const Placed& p) {
  constexpr double kEdge = 1e-6;  // points of rounding
  return p.x >= f.left - kEdge && p.x <= f.right() + kEdge && p.y >= f.top - kEdge &&
         p.y <= f.bottom() + kEdge;
}

// On a bitmap the symbol is drawn once into a small image and stamped at each point,
// on whole device pixels; on vector pages each symbol is a path of its own.
void draw_symbols(cairo_t* cr, const Frame& f, const Series& s, const DrawStyle& d) {
  if (cairo_surface_get_type(cairo_get_target(cr)) != CAIRO_SURFACE_TYPE_IMAGE) {
    for (std::size_t i = 0; i < s.x.size(); ++i) {
      const auto p = place(f, s.x[i], s.y[i]);
      if (p && in_area(f, *p)) paint_symbol(cr, d, p->x, p->y);
    }
    return;
  }
  cairo_matrix_t page;  // page points to device pixels, without rotation
  cairo_get_matrix(cr, &page);
  const double scale = page.xx;
  const int side = static_cast<int>(std::ceil((1.5 * d.symbol_size + 2) * scale)) | 1;
  cairo_surface_t* stamp = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, side, side);
  cairo_t* sc = cairo_create(stamp);
  cairo_scale(sc, scale, scale);
  paint_symbol(sc, d, side / (2 * scale), side / (2 * scale));
  cairo_destroy(sc);

  cairo_save(cr);
  cairo_identity_matrix(cr);
  const double half = side / 2;
  for (std::size_t i = 0; i < s.x.size(); ++i) {
    auto p = place(f, s.x[i], s.y[i]);
    if (!p || !in_area(f, *p)) continue;
    cairo_matrix_transform_point(&page, &p->x, &p->y);
    const double x = std::round(p->x) - half, y = std::round(p->y) - half;
    cairo_set_source_surface(cr, stamp, x, y);
    cairo_rectangle(cr, x, y, side, side);
    cairo_fill(cr);
  }
  cairo_restore(cr);
  cairo_surface_destroy(stamp);
}

// Open triangles on the x axis, pointing up, at the x of each missing y.
void draw_missing_marks(cairo_t* cr, const Frame& f, const Series& s, const DrawStyle& d) {
  for (std::size_t i = 0; i < s.x.size(); ++i) {
    if (!core::is_missing(s.y[i]) || !graphics::drawable_on(f.x.scale, s.x[i])) continue;
    const double x = clamp_coordinate(f.px(s.x[i]));
    add_symbol(cr, graphics::Symbol::kTriangle, x, f.bottom() - 4, 7);
  }
  set_colour(cr, d.rgb);
  set_line(cr, graphics::Dash::kSolid, 1.0);
  cairo_stroke(cr);
}

}  // namespace

void draw_series(cairo_t* cr, const Frame& f, const Series& s) {
  const DrawStyle d = resolve_style(s);
  cairo_save(cr);
  cairo_rectangle(cr, f.left, f.top, f.width, f.height);
  cairo_clip(cr);
  if (s.style.bars) draw_bars(cr, f, s, d);
  if (d.dash != graphics::Dash::kNone) draw_curve(cr, f, s, d);
  if (s.style.error_bars) draw_error_bars(cr, f, s, d);
  if (s.style.mark_missing) draw_missing_marks(cr, f, s, d);
  cairo_restore(cr);
  // Symbols are not clipped: one on the edge of the plot area (a correlation of exactly
  // 1 on an axis ending at 1) is drawn whole, over the frame. Points outside the area
  // are left out.
  if (d.symbol != graphics::Symbol::kNone) draw_symbols(cr, f, s, d);
}

}  // namespace tidemark::render
