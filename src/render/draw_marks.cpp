#include "render/draw_parts.h"
#include "render/draw_style.h"
#include "render/text.h"

namespace tidemark::render {

namespace {

constexpr std::uint32_t kMarkerColour = 0x6E6E6E;

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

}  // namespace tidemark::render
