#pragma once
// Text on a cairo context in the graph's type roles: tick labels, axis labels, panel
// titles, the page title and notes. Sizes follow RenderOptions::font_size.
#include <cairo.h>

#include <string>
#include <string_view>

#include "graphics/plot_style.h"
#include "render/render_options.h"

namespace tidemark::render {

enum class Role { kTick, kLabel, kPanelTitle, kPageTitle, kNote };

// Selects the face and size of `role` on `cr`.
void use_font(cairo_t* cr, const RenderOptions& options, Role role);

// The size in points of text in `role`.
double font_points(const RenderOptions& options, Role role);

// Width of `text` in the current font.
double text_width(cairo_t* cr, std::string_view text);

// `text` if it is at most `width` wide in the current font, else its longest beginning
// (whole characters, trailing blanks dropped) that fits with "…" after it; "" when not
// even "…" fits.
std::string shortened_to(cairo_t* cr, std::string_view text, double width);

// Height of a line in the current font (ascent + descent).
double line_height(cairo_t* cr);

// Draws `text` in the current font and source with its baseline at y; `align` says
// which end of the text is at x. With `centred` the text's middle (half the ascent
// above the baseline) is at y instead.
void draw_text(cairo_t* cr, double x, double y, std::string_view text, graphics::Align align,
               bool centred = false);

}  // namespace tidemark::render
