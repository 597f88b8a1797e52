#pragma once
// The sizes a legend is drawn with, and where the entries of a legend below a panel
// go: side by side in rows centred under the plot area, a new row begun when the next
// entry would pass the area's width.
#include <cairo.h>

#include <cstddef>
#include <vector>

#include "graphics/plot.h"
#include "render/render_options.h"

namespace tidemark::render {

inline constexpr double kLegendSample = 22;   // length of a series' sample line
inline constexpr double kLegendPad = 5;       // inside a corner legend's box
inline constexpr double kLegendInset = 6;     // from a corner legend's box to the frame
inline constexpr double kLegendSpacing = 15;  // between two entries of a row

// Height of a legend row: 1.35 note lines.
double legend_row_height(cairo_t* cr, const RenderOptions& options);

struct LegendEntry {
  std::size_t series = 0;  // index in the panel's series
  double x = 0;            // left end of its sample, from the plot area's left edge
  int row = 0;             // 0 for the first
};

struct LegendRows {
  std::vector<LegendEntry> entries{};  // the named series, in order
  int rows = 0;
  double row_height = 0;
  double height() const { return rows * row_height; }
};

// The entries of `panel`'s named series in rows under a plot area `width` points wide:
// each is its sample, a gap and its name; an entry wider than the area has a row to
// itself, starting at the left edge.
LegendRows legend_rows(cairo_t* cr, const graphics::Panel& panel, const RenderOptions& options,
                       double width);

}  // namespace tidemark::render
