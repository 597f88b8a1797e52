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

// `text` as cairo can draw it, whatever its bytes: well-formed UTF-8 is kept; any other
// byte from 0xA0 up is read as Latin-1 (a title typed as "\xB5g/L" is drawn "µg/L"), and
// the rest (NUL, 0x80..0x9F, a stray byte of a broken sequence below 0xA0) become "?".
// cairo refuses a malformed string and then draws nothing more on the context.
std::string drawable_text(std::string_view text);

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
