#pragma once
// A series' style with its AUTO entries and default sizes resolved, and the cairo
// settings for colours and dashes.
#include <cairo.h>

#include <cstdint>

#include "graphics/plot.h"

namespace tidemark::render {

inline constexpr double kDefaultSymbolSize = 5;    // points
inline constexpr double kDefaultLineWidth = 1.25;  // points

struct DrawStyle {
  graphics::Symbol symbol = graphics::Symbol::kNone;
  double symbol_size = kDefaultSymbolSize;
  graphics::Dash dash = graphics::Dash::kNone;
  double line_width = kDefaultLineWidth;
  std::uint32_t rgb = 0;
};

// The style of `series`: AUTO symbol, dash and colour from the series cycle at its
// index in the panel, sizes left at 0 by their defaults.
DrawStyle resolve_style(const graphics::Series& series);

// Sets the source colour 0xRRGGBB with opacity `alpha`.
void set_colour(cairo_t* cr, std::uint32_t rgb, double alpha = 1.0);

// Sets the line width and the dash pattern of `dash` (lengths grow with the width).
void set_line(cairo_t* cr, graphics::Dash dash, double width);

// Adds the outline of `symbol` centred at (x, y), `size` points across, as a new
// sub-path; returns true when the shape is closed (to be filled), false for the
// cross and plus (to be stroked).
bool add_symbol(cairo_t* cr, graphics::Symbol symbol, double x, double y, double size);

// A page coordinate kept within ±1e5 points, so that values far outside the axis range
// stay within what cairo can draw.
double clamp_coordinate(double v);

}  // namespace tidemark::render
