#include "render/draw_style.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tidemark::render {

using graphics::Dash;
using graphics::Symbol;

DrawStyle resolve_style(const graphics::Series& series) {
  const graphics::SeriesStyle& s = series.style;
  DrawStyle d;
  d.symbol = s.symbol == Symbol::kAuto ? graphics::cycle_symbol(series.index) : s.symbol;
  d.dash = s.line == Dash::kAuto ? graphics::cycle_dash(series.index) : s.line;
  d.rgb = (s.colour.automatic ? graphics::cycle_colour(series.index) : s.colour).rgb;
  if (s.symbol_size > 0) d.symbol_size = s.symbol_size;
  if (s.line_width > 0) d.line_width = s.line_width;
  return d;
}

void set_colour(cairo_t* cr, std::uint32_t rgb, double alpha) {
  cairo_set_source_rgba(cr, ((rgb >> 16) & 0xFF) / 255.0, ((rgb >> 8) & 0xFF) / 255.0,
                        (rgb & 0xFF) / 255.0, alpha);
}

void set_line(cairo_t* cr, Dash dash, double width) {
  cairo_set_line_width(cr, width);
  const double u = std::max(1.0, width);
  const double dashed[] = {5 * u, 3 * u};
  const double dotted[] = {0, 2.5 * u};
  const double dash_dot[] = {6 * u, 2.5 * u, 0, 2.5 * u};
  cairo_set_line_cap(cr, dash == Dash::kDot || dash == Dash::kDashDot ? CAIRO_LINE_CAP_ROUND
                                                                      : CAIRO_LINE_CAP_BUTT);
  switch (dash) {
    case Dash::kDash:
      cairo_set_dash(cr, dashed, 2, 0);
      break;
    case Dash::kDot:
      cairo_set_dash(cr, dotted, 2, 0);
      break;
    case Dash::kDashDot:
      cairo_set_dash(cr, dash_dot, 4, 0);
      break;
    default:
      cairo_set_dash(cr, nullptr, 0, 0);
  }
}

bool add_symbol(cairo_t* cr, Symbol symbol, double x, double y, double size) {
  const double r = size / 2;
  cairo_new_sub_path(cr);
  switch (symbol) {
    case Symbol::kCircle:
      cairo_arc(cr, x, y, r, 0, 2 * std::numbers::pi);
      return true;
    case Symbol::kSquare:
      cairo_rectangle(cr, x - 0.9 * r, y - 0.9 * r, 1.8 * r, 1.8 * r);
      return true;
    case Symbol::kTriangle:
    case Symbol::kDownTriangle: {
      const double s = symbol == Symbol::kTriangle ? 1 : -1;  // apex up or down
      cairo_move_to(cr, x, y - s * 1.15 * r);
      cairo_line_to(cr, x + 1.05 * r, y + s * 0.75 * r);
      cairo_line_to(cr, x - 1.05 * r, y + s * 0.75 * r);
      cairo_close_path(cr);
      return true;
    }
    case Symbol::kDiamond:
      cairo_move_to(cr, x, y - 1.2 * r);
      cairo_line_to(cr, x + 1.0 * r, y);
      cairo_line_to(cr, x, y + 1.2 * r);
      cairo_line_to(cr, x - 1.0 * r, y);
      cairo_close_path(cr);
      return true;
    case Symbol::kCross:
      cairo_move_to(cr, x - r, y - r);
      cairo_line_to(cr, x + r, y + r);
      cairo_move_to(cr, x - r, y + r);
      cairo_line_to(cr, x + r, y - r);
      return false;
    case Symbol::kPlus:
      cairo_move_to(cr, x - 1.15 * r, y);
      cairo_line_to(cr, x + 1.15 * r, y);
      cairo_move_to(cr, x, y - 1.15 * r);
      cairo_line_to(cr, x, y + 1.15 * r);
      return false;
    case Symbol::kNone:
    case Symbol::kAuto:
      break;
  }
  return false;
}

double clamp_coordinate(double v) {
  return std::clamp(v, -1e5, 1e5);
}

}  // namespace tidemark::render
