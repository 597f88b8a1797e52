#include <algorithm>

#include "render/draw_parts.h"
#include "render/draw_style.h"
#include "render/legend_place.h"
#include "render/legend_rows.h"
#include "render/text.h"

namespace tidemark::render {

namespace {

// The sample of a series in the legend: a short piece of its curve (or a bar) with its
// symbol in the middle.
void draw_sample(cairo_t* cr, const graphics::Series& s, double x, double y) {
  const DrawStyle d = resolve_style(s);
  if (s.style.bars) {
    cairo_rectangle(cr, x + 4, y - 4, kLegendSample - 8, 8);
    set_colour(cr, d.rgb, 0.45);
    cairo_fill_preserve(cr);
    set_colour(cr, d.rgb);
    set_line(cr, graphics::Dash::kSolid, 0.75);
    cairo_stroke(cr);
  }
  if (d.dash != graphics::Dash::kNone) {
    cairo_move_to(cr, x, y);
    cairo_line_to(cr, x + kLegendSample, y);
    set_colour(cr, d.rgb);
    set_line(cr, d.dash, d.line_width);
    cairo_stroke(cr);
  }
  if (d.symbol != graphics::Symbol::kNone) {
    const bool closed = add_symbol(cr, d.symbol, x + kLegendSample / 2, y, d.symbol_size);
    set_colour(cr, d.rgb);
    if (closed) {
      cairo_fill(cr);
    } else {
      set_line(cr, graphics::Dash::kSolid, 1.2);
      cairo_stroke(cr);
    }
  }
}

// A legend entry: the sample from x, the name after it, both centred on `middle`.
void draw_entry(cairo_t* cr, const graphics::Series& s, double x, double middle,
                const RenderOptions& options) {
  draw_sample(cr, s, x, middle);
  use_font(cr, options, Role::kNote);
  cairo_set_source_rgb(cr, 0, 0, 0);
  draw_text(cr, x + kLegendSample + kGap, middle, s.name, graphics::Align::kLeft, true);
}

// The entries in rows under the x label, without a box.
void draw_legend_below(cairo_t* cr, const Frame& f, const graphics::Panel& panel,
                       const RenderOptions& options) {
  const LegendRows rows = legend_rows(cr, panel, options, f.width);
  for (const LegendEntry& e : rows.entries) {
    draw_entry(cr, panel.series[e.series], f.left + e.x,
               f.legend_top + (e.row + 0.5) * rows.row_height, options);
  }
}

// The entries one under another in a box in a corner of the plot area.
void draw_legend_box(cairo_t* cr, const Frame& f, const graphics::Panel& panel,
                     const RenderOptions& options) {
  const Box box = legend_box(cr, f, panel, options, panel.legend);
  if (box.width <= 0) return;
  const double row = legend_row_height(cr, options);
  cairo_rectangle(cr, box.x, box.y, box.width, box.height);
  cairo_set_source_rgba(cr, 1, 1, 1, 0.88);
  cairo_fill_preserve(cr);
  set_colour(cr, 0xB0B0B0);
  set_line(cr, graphics::Dash::kSolid, 0.6);
  cairo_stroke(cr);
  double middle = box.y + kLegendPad + row / 2;
  for (const graphics::Series& s : panel.series) {
    if (s.name.empty()) continue;
    draw_entry(cr, s, box.x + kLegendPad, middle, options);
    middle += row;
  }
}

}  // namespace

void draw_legend(cairo_t* cr, const Frame& f, const graphics::Panel& panel,
                 const RenderOptions& options) {
  if (panel.legend == graphics::Place::kNone) return;
  if (panel.legend == graphics::Place::kBelow) {
    draw_legend_below(cr, f, panel, options);
  } else {
    draw_legend_box(cr, f, panel, options);
  }
}

}  // namespace tidemark::render
