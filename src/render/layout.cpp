#include "render/layout.h"

#include <algorithm>
#include <numeric>

#include "graphics/panel_extent.h"
#include "render/legend_rows.h"
#include "render/text.h"

namespace tidemark::render {

namespace {

using graphics::Panel;

constexpr double kMarkerSymbolClear = 3;  // half a default symbol and a little

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

// Everything of a page but the plot areas' heights: the page's own lines, the shared
// left and right edges of the plot areas, and each panel's lines above and below its
// plot area.
struct Skeleton {
  PageLayout page{};
  double first_top = 0;    // of the first panel's title line
  double bottom_room = 0;  // below the last panel: the margin and the page texts' line
  double label_h = 0;      // the x label's line
  double tick_h = 0;       // the x tick labels' line
  double panel_title_h = 0;
  std::vector<double> overheads{};  // per panel: its height besides the plot area
  std::vector<double> legend_heights{};
  double weights = 0;  // the sum of the panels' HEIGHTs
  double widest_x = 0;
  // Kept free above the data of an automatic y axis when markers have labels: their
  // line (a note line, 1 pt below the frame) and half a symbol.
  double marker_label_room = 0;
};

Skeleton measure(cairo_t* cr, const graphics::Plot& plot, const RenderOptions& o) {
  Skeleton s;
  PageLayout& page = s.page;
  s.tick_h = role_height(cr, o, Role::kTick);
  s.label_h = role_height(cr, o, Role::kLabel);
  s.panel_title_h = role_height(cr, o, Role::kPanelTitle);
  const double page_title_h = role_height(cr, o, Role::kPageTitle);
  const double note_h = role_height(cr, o, Role::kNote);
  s.marker_label_room = note_h + 1 + kMarkerSymbolClear;

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
  s.first_top = top;
  s.bottom_room = kOuterMargin + (plot.page_texts.empty() ? 0 : note_h + kGap);

  // Scales first: their tick labels set the left margin.
  use_font(cr, o, Role::kTick);
  double widest_y = 0;
  bool any_y_label = false;
  for (const Panel& p : plot.panels) {
    const graphics::PanelExtent extent = graphics::panel_extent(p);
    Frame f{.x = graphics::make_axis_scale(p.x_axis, extent.x),
            .y = graphics::make_axis_scale(p.y_axis, extent.y)};
    widest_y = std::max(widest_y, widest_label(cr, f.y));
    s.widest_x = std::max(s.widest_x, widest_label(cr, f.x));
    any_y_label = any_y_label || !p.y_axis.label.empty();
    page.frames.push_back(std::move(f));
  }
  const double left =
      kOuterMargin + (any_y_label ? s.label_h + kGap : 0) + widest_y + kGap + kTickLength;
  const double width = std::max(1.0, o.width - kOuterMargin - s.widest_x / 2 - left);
  page.notes_left = plot.panels.empty() ? kOuterMargin : left;
  for (std::size_t i = 0; i < plot.panels.size(); ++i) {
    const Panel& p = plot.panels[i];
    page.frames[i].left = left;
    page.frames[i].width = width;
    const double legend =
        p.legend == graphics::Place::kBelow ? legend_rows(cr, p, o, width).height() : 0;
    s.legend_heights.push_back(legend);
    s.weights += p.height;
    s.overheads.push_back((p.title.empty() ? 0 : s.panel_title_h + kGap) + kTickLength + kGap +
                          s.tick_h + (p.x_axis.label.empty() ? 0 : s.label_h + kGap) + kGap +
                          (legend > 0 ? legend + 2 * kGap : 0));
  }
  return s;
}

bool has_marker_labels(const Panel& p) {
  return std::any_of(p.markers.begin(), p.markers.end(),
                     [](const graphics::Marker& m) { return !m.label.empty(); });
}

double sum(const std::vector<double>& v) {
  return std::accumulate(v.begin(), v.end(), 0.0);
}

}  // namespace

PageLayout lay_out(cairo_t* cr, const graphics::Plot& plot, const RenderOptions& o) {
  Skeleton s = measure(cr, plot, o);
  const double plot_heights =
      std::max(0.0, o.height - s.bottom_room - s.first_top - sum(s.overheads));
  double top = s.first_top;
  for (std::size_t i = 0; i < plot.panels.size(); ++i) {
    const Panel& p = plot.panels[i];
    Frame& f = s.page.frames[i];
    if (!p.title.empty()) top += s.panel_title_h + kGap;
    f.top = top;
    f.height = std::max(1.0, plot_heights * p.height / s.weights);
    // Now that the area's size is known, as many tick labels as fit without crowding.
    const graphics::PanelExtent extent = graphics::panel_extent(p);
    f.x = graphics::make_axis_scale(p.x_axis, extent.x, f.width / (s.widest_x + 4 * kGap));
    f.y = graphics::make_axis_scale(p.y_axis, extent.y, f.height / (1.7 * s.tick_h),
                                    has_marker_labels(p) ? s.marker_label_room / f.height : 0);
    top += f.height + kTickLength + kGap + s.tick_h +
           (p.x_axis.label.empty() ? 0 : s.label_h + kGap) + kGap;
    f.legend_top = top;
    if (s.legend_heights[i] > 0) top += s.legend_heights[i] + 2 * kGap;
  }
  return s.page;
}

double grown_page_height(cairo_t* cr, const graphics::Plot& plot, const RenderOptions& o) {
  const Skeleton s = measure(cr, plot, o);
  const double needed =
      s.first_top + sum(s.overheads) + kLeastPlotHeight * o.font_size * s.weights + s.bottom_room;
  return std::max(o.height, std::min(needed, tallest_page(o)));
}

}  // namespace tidemark::render
