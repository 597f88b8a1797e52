#include "render/layout.h"

#include <algorithm>

#include "graphics/panel_extent.h"
#include "render/text.h"

namespace tidemark::render {

namespace {

using graphics::Panel;

double widest_label(cairo_t* cr, const graphics::AxisScale& a) {
  double w = 0;
  for (const graphics::Tick& t : a.ticks) w = std::max(w, text_width(cr, t.label));
  return w;
}

// Height of the line of `role`, measured in its font.
double role_height(cairo_t* cr, const RenderOptions& o, Role role) {
  use_font(cr, o, role);
  return line_height(cr);
}

}  // namespace

PageLayout lay_out(cairo_t* cr, const graphics::Plot& plot, const RenderOptions& o) {
  PageLayout page;
  const double tick_h = role_height(cr, o, Role::kTick);
  const double label_h = role_height(cr, o, Role::kLabel);
  const double panel_title_h = role_height(cr, o, Role::kPanelTitle);
  const double page_title_h = role_height(cr, o, Role::kPageTitle);
  const double note_h = role_height(cr, o, Role::kNote);

  double top = kOuterMargin;
  if (!plot.title.empty()) {
    page.title_baseline = top + 0.8 * page_title_h;
    top += page_title_h + kGap;
  }
  if (!plot.notes.empty()) {
    use_font(cr, o, Role::kNote);
    cairo_font_extents_t note;
    cairo_font_extents(cr, &note);
    for (std::size_t i = 0; i < plot.notes.size(); ++i) {
      page.note_baselines.push_back(top + note.ascent);
      top += note_h;
    }
    top += kGap;
  }
  const double bottom = o.height - kOuterMargin - (plot.page_texts.empty() ? 0 : note_h + kGap);

  // Scales first: their tick labels set the left margin and the panels' overheads.
  use_font(cr, o, Role::kTick);
  double widest_y = 0, widest_x = 0, overhead = 0, weights = 0;
  bool any_y_label = false;
  for (const Panel& p : plot.panels) {
    const graphics::PanelExtent extent = graphics::panel_extent(p);
    Frame f{.x = graphics::make_axis_scale(p.x_axis, extent.x),
            .y = graphics::make_axis_scale(p.y_axis, extent.y)};
    widest_y = std::max(widest_y, widest_label(cr, f.y));
    widest_x = std::max(widest_x, widest_label(cr, f.x));
    any_y_label = any_y_label || !p.y_axis.label.empty();
    overhead += (p.title.empty() ? 0 : panel_title_h + kGap) + kTickLength + kGap + tick_h +
                (p.x_axis.label.empty() ? 0 : label_h + kGap) + kGap;
    weights += p.height;
    page.frames.push_back(std::move(f));
  }

  const double left =
      kOuterMargin + (any_y_label ? label_h + kGap : 0) + widest_y + kGap + kTickLength;
  const double right = o.width - kOuterMargin - widest_x / 2;
  page.notes_left = plot.panels.empty() ? kOuterMargin : left;
  const double plot_heights = std::max(0.0, bottom - top - overhead);
  for (std::size_t i = 0; i < plot.panels.size(); ++i) {
    const Panel& p = plot.panels[i];
    Frame& f = page.frames[i];
    if (!p.title.empty()) top += panel_title_h + kGap;
    f.left = left;
    f.top = top;
    f.width = std::max(1.0, right - left);
    f.height = std::max(1.0, plot_heights * p.height / weights);
    // Now that the area's size is known, as many tick labels as fit without crowding.
    const graphics::PanelExtent extent = graphics::panel_extent(p);
    f.x = graphics::make_axis_scale(p.x_axis, extent.x, f.width / (widest_x + 4 * kGap));
    f.y = graphics::make_axis_scale(p.y_axis, extent.y, f.height / (1.7 * tick_h));
    top += f.height + kTickLength + kGap + tick_h + (p.x_axis.label.empty() ? 0 : label_h + kGap) +
           kGap;
  }
  return page;
}

}  // namespace tidemark::render
