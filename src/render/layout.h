#pragma once
// Where each part of a page goes: the page title, the notes under it, and for each
// panel its title line, its plot area and the axes' scales. The plot areas share one
// left edge, wide enough for the widest y tick labels of any panel, so stacked panels
// line up in time.
#include <cairo.h>

#include <vector>

#include "graphics/axis_scale.h"
#include "graphics/plot.h"
#include "render/render_options.h"

namespace tidemark::render {

// A panel's plot area in page points (y grows downwards) and its axis scales.
struct Frame {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  graphics::AxisScale x{};
  graphics::AxisScale y{};
  double legend_top = 0;  // of a legend below the panel: under the x label's line

  // Page coordinates of data values; values outside the axis range map outside the area.
  double px(double v) const { return left + x.fraction(v) * width; }
  double py(double v) const { return top + (1 - y.fraction(v)) * height; }
  double bottom() const { return top + height; }
  double right() const { return left + width; }
};

struct PageLayout {
  double title_baseline = 0;           // of the page title, centred on the page
  double notes_left = 0;               // the plot areas' left edge (the margin without panels)
  std::vector<double> note_baselines;  // one per note, from the top down
  std::vector<Frame> frames;           // one per panel, in order
};

// Space around the page and between the parts, in points.
inline constexpr double kOuterMargin = 14;
inline constexpr double kTickLength = 4;
inline constexpr double kGap = 5;
// The least height of the plot areas per unit of panel HEIGHT, in font sizes: 110 pt
// at the default 11 pt, room for about ten tick labels.
inline constexpr double kLeastPlotHeight = 10;

// Lays out `plot` on a page of options.width x options.height points; `cr` measures
// the text. The notes take one line each (ascent + descent of the note font) between
// the page title and the first panel, and a gap below the last, so the panels share
// what is left of the height in proportion to their HEIGHT. A panel's lines besides
// its plot area: its title and a gap, the ticks, a gap, the tick labels, the x label
// and a gap, a gap, and the rows of a legend below it with two gaps.
PageLayout lay_out(cairo_t* cr, const graphics::Plot& plot, const RenderOptions& options);

// The height of the page `plot` is drawn on: options.height, or more when its plot
// areas would be less than kLeastPlotHeight font sizes tall per unit of HEIGHT, then
// just tall enough for that (the page's own lines + the panels' lines +
// kLeastPlotHeight x font size x the sum of the HEIGHTs), though never beyond
// tallest_page(options). A page of one or two panels keeps the height it is given.
double grown_page_height(cairo_t* cr, const graphics::Plot& plot, const RenderOptions& options);

}  // namespace tidemark::render
