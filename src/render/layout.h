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

// Lays out `plot` on a page of options.width x options.height points; `cr` measures
// the text. The notes take one line each (ascent + descent of the note font) between
// the page title and the first panel, and a gap below the last, so the panels share
// what is left of the height.
PageLayout lay_out(cairo_t* cr, const graphics::Plot& plot, const RenderOptions& options);

}  // namespace tidemark::render
