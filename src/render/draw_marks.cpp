#include <algorithm>

#include "render/draw_parts.h"
#include "render/draw_style.h"
#include "render/text.h"

namespace tidemark::render {

namespace {

constexpr std::uint32_t kMarkerColour = 0x6E6E6E;
constexpr double kLegendSample = 22;
constexpr double kLegendPad = 5;
constexpr double kLegendInset = 6;

void draw_markers(cairo_t* cr, const Frame& f, const graphics::Panel& p, const RenderOptions& o) {
  use_font(cr, o, Role::kNote);
  cairo_font_extents_t e;
  cairo_font_extents(cr, &e);
  for (const graphics::Marker& m : p.markers) {
    if (!graphics::drawable_on(f.x.scale, m.x)) continue;
    const double x = clamp_coordinate(f.px(m.x));
    cairo_move_to(cr, x, f.top + (m.label.empty() ? 0 : e.ascent + e.descent + 1));
    cairo_line_to(cr, x, f.bottom());
    set_colour(cr, kMarkerColour);
    set_line(cr, graphics::Dash::kDash, 0.8);
    cairo_stroke(cr);
    draw_text(cr, x, f.top + e.ascent + 1, m.label, graphics::Align::kCenter);
  }
}

void draw_crosshairs(cairo_t* cr, const Frame& f, const graphics::Panel& p) {
  for (const graphics::Crosshair& c : p.crosshairs) {
    if (!graphics::drawable_on(f.x.scale, c.x) || !graphics::drawable_on(f.y.scale, c.y)) continue;
    const double x = clamp_coordinate(f.px(c.x)), y = clamp_coordinate(f.py(c.y));
    const auto px = [&](double v) {
      return graphics::drawable_on(f.x.scale, v) ? clamp_coordinate(f.px(v)) : f.left;
    };
    const auto py = [&](double v) {
      return graphics::drawable_on(f.y.scale, v) ? clamp_coordinate(f.py(v)) : f.bottom();
    };
    cairo_move_to(cr, px(c.x - c.dx), y);
    cairo_line_to(cr, px(c.x + c.dx), y);
    cairo_move_to(cr, x, py(c.y - c.dy));
    cairo_line_to(cr, x, py(c.y + c.dy));
  }
  set_colour(cr, graphics::kVermilion.rgb);
  set_line(cr, graphics::Dash::kSolid, 1.3);
  cairo_stroke(cr);
}

void draw_data_texts(cairo_t* cr, const Frame& f, const graphics::Panel& p,
                     const RenderOptions& o) {
  use_font(cr, o, Role::kNote);
  cairo_set_source_rgb(cr, 0, 0, 0);
  for (const graphics::Label& l : p.texts) {
    if (!graphics::drawable_on(f.x.scale, l.x) || !graphics::drawable_on(f.y.scale, l.y)) continue;
    draw_text(cr, clamp_coordinate(f.px(l.x)), clamp_coordinate(f.py(l.y)), l.text, l.align);
  }
}

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

}  // namespace

void draw_marks(cairo_t* cr, const Frame& f, const graphics::Panel& panel,
                const RenderOptions& options) {
  cairo_save(cr);
  cairo_rectangle(cr, f.left, f.top, f.width, f.height);
  cairo_clip(cr);
  draw_markers(cr, f, panel, options);
  draw_crosshairs(cr, f, panel);
  draw_data_texts(cr, f, panel, options);
  cairo_restore(cr);
}

void draw_legend(cairo_t* cr, const Frame& f, const graphics::Panel& panel,
                 const RenderOptions& options) {
  using graphics::Place;
  if (panel.legend == Place::kNone) return;
  use_font(cr, options, Role::kNote);
  const double row = 1.35 * line_height(cr);
  double widest = 0;
  int rows = 0;
  for (const graphics::Series& s : panel.series) {
    if (s.name.empty()) continue;
    widest = std::max(widest, text_width(cr, s.name));
    ++rows;
  }
  if (rows == 0) return;
  const double w = 2 * kLegendPad + kLegendSample + kGap + widest;
  const double h = 2 * kLegendPad + rows * row;
  const bool left = panel.legend == Place::kTopLeft || panel.legend == Place::kBottomLeft;
  const bool top = panel.legend == Place::kTopLeft || panel.legend == Place::kTopRight;
  const double x = left ? f.left + kLegendInset : f.right() - kLegendInset - w;
  // A legend at the top stays below the labels of the vertical markers.
  const bool labelled = std::any_of(panel.markers.begin(), panel.markers.end(),
                                    [](const graphics::Marker& m) { return !m.label.empty(); });
  const double below_labels = labelled ? row : 0;
  const double y = top ? f.top + kLegendInset + below_labels : f.bottom() - kLegendInset - h;
  cairo_rectangle(cr, x, y, w, h);
  cairo_set_source_rgba(cr, 1, 1, 1, 0.88);
  cairo_fill_preserve(cr);
  set_colour(cr, 0xB0B0B0);
  set_line(cr, graphics::Dash::kSolid, 0.6);
  cairo_stroke(cr);
  double middle = y + kLegendPad + row / 2;
  for (const graphics::Series& s : panel.series) {
    if (s.name.empty()) continue;
    draw_sample(cr, s, x + kLegendPad, middle);
    use_font(cr, options, Role::kNote);
    cairo_set_source_rgb(cr, 0, 0, 0);
    draw_text(cr, x + kLegendPad + kLegendSample + kGap, middle, s.name, graphics::Align::kLeft,
              true);
    middle += row;
  }
}

}  // namespace tidemark::render
