#include <algorithm>
#include <string>

#include "render/draw_parts.h"
#include "render/draw_style.h"
#include "render/text.h"

namespace tidemark::render {

namespace {

constexpr std::uint32_t kGridColour = 0xE4E4E4;
constexpr std::uint32_t kFrameColour = 0x333333;
constexpr double kMinorTick = 2.5;
constexpr double kSmallestYLabel = 0.8;

void draw_grid(cairo_t* cr, const Frame& f) {
  // Grid lines at the major ticks and at the labelled minor ones (2 and 5 on a short
  // log axis).
  for (const graphics::Tick& t : f.x.ticks) {
    if (!t.major && t.label.empty()) continue;
    const double x = f.px(t.value);
    cairo_move_to(cr, x, f.top);
    cairo_line_to(cr, x, f.bottom());
  }
  for (const graphics::Tick& t : f.y.ticks) {
    if (!t.major && t.label.empty()) continue;
    const double y = f.py(t.value);
    cairo_move_to(cr, f.left, y);
    cairo_line_to(cr, f.right(), y);
  }
  set_colour(cr, kGridColour);
  set_line(cr, graphics::Dash::kSolid, 0.6);
  cairo_stroke(cr);
}

void draw_ticks(cairo_t* cr, const Frame& f) {
  for (const graphics::Tick& t : f.x.ticks) {
    const double x = f.px(t.value);
    cairo_move_to(cr, x, f.bottom());
    cairo_line_to(cr, x, f.bottom() + (t.major ? kTickLength : kMinorTick));
  }
  for (const graphics::Tick& t : f.y.ticks) {
    const double y = f.py(t.value);
    cairo_move_to(cr, f.left, y);
    cairo_line_to(cr, f.left - (t.major ? kTickLength : kMinorTick), y);
  }
  cairo_rectangle(cr, f.left, f.top, f.width, f.height);
  set_colour(cr, kFrameColour);
  set_line(cr, graphics::Dash::kSolid, 0.8);
  cairo_set_line_cap(cr, CAIRO_LINE_CAP_SQUARE);
  cairo_stroke(cr);
}

// Tick labels; returns the baseline of the x labels' line.
double draw_tick_labels(cairo_t* cr, const Frame& f, const RenderOptions& o) {
  use_font(cr, o, Role::kTick);
  cairo_font_extents_t e;
  cairo_font_extents(cr, &e);
  set_colour(cr, kFrameColour);
  const double x_baseline = f.bottom() + kTickLength + kGap + e.ascent;
  for (const graphics::Tick& t : f.x.ticks) {
    draw_text(cr, f.px(t.value), x_baseline, t.label, graphics::Align::kCenter);
  }
  for (const graphics::Tick& t : f.y.ticks) {
    draw_text(cr, f.left - kTickLength - kGap, f.py(t.value), t.label, graphics::Align::kRight,
              true);
  }
  return x_baseline + e.descent;
}

// The y label turned up the left side, centred on the plot area, its baseline where a
// label of full size has it. A label longer than the area is tall is set smaller, down
// to kSmallestYLabel of its size, and what still does not fit is cut with an ellipsis,
// so that it never runs into the neighbouring panels.
void draw_y_label(cairo_t* cr, const Frame& f, const std::string& label, const RenderOptions& o,
                  double baseline) {
  use_font(cr, o, Role::kLabel);
  const double full = text_width(cr, label);
  if (full > f.height) {
    cairo_set_font_size(cr,
                        font_points(o, Role::kLabel) * std::max(kSmallestYLabel, f.height / full));
  }
  cairo_save(cr);
  cairo_translate(cr, baseline, f.top + f.height / 2);
  cairo_rotate(cr, -1.5707963267948966);
  draw_text(cr, 0, 0, shortened_to(cr, label, f.height), graphics::Align::kCenter);
  cairo_restore(cr);
}

void draw_axis_labels(cairo_t* cr, const Frame& f, const graphics::Panel& p, const RenderOptions& o,
                      double below_ticks) {
  use_font(cr, o, Role::kLabel);
  cairo_font_extents_t e;
  cairo_font_extents(cr, &e);
  cairo_set_source_rgb(cr, 0, 0, 0);
  draw_text(cr, f.left + f.width / 2, below_ticks + kGap + e.ascent, p.x_axis.label,
            graphics::Align::kCenter);
  if (!p.y_axis.label.empty()) draw_y_label(cr, f, p.y_axis.label, o, kOuterMargin + e.ascent);
}

}  // namespace

void draw_axes(cairo_t* cr, const Frame& f, const graphics::Panel& panel,
               const RenderOptions& options) {
  draw_grid(cr, f);
  draw_ticks(cr, f);
  const double below_ticks = draw_tick_labels(cr, f, options);
  draw_axis_labels(cr, f, panel, options, below_ticks);
  if (panel.title.empty()) return;
  use_font(cr, options, Role::kPanelTitle);
  cairo_set_source_rgb(cr, 0, 0, 0);
  cairo_font_extents_t e;
  cairo_font_extents(cr, &e);
  draw_text(cr, f.left, f.top - kGap - e.descent, panel.title, graphics::Align::kLeft);
}

}  // namespace tidemark::render
