#pragma once
// Where a panel's legend box goes so that it hides no data. The plot source asks for a
// corner; when the box there would cover a data point, an error bar's end or a marker
// label, the first free corner of top right, top left, bottom right, bottom left is
// taken, and when none is free the legend goes below the panel, outside the plot area.
#include <cairo.h>

#include "graphics/plot.h"
#include "render/layout.h"
#include "render/render_options.h"

namespace tidemark::render {

struct Box {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

// The legend box of `panel` in corner `place` of the plot area `f`; a box of no size
// when no series is named.
Box legend_box(cairo_t* cr, const Frame& f, const graphics::Panel& panel,
               const RenderOptions& options, graphics::Place place);

// `plot` with each corner legend moved where it hides nothing (see above); `cr`
// measures the text on the page of `options`.
graphics::Plot with_legends_placed(cairo_t* cr, const graphics::Plot& plot,
                                   const RenderOptions& options);

}  // namespace tidemark::render
