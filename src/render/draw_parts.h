#pragma once
// The drawing of each part of a panel, in the order draw_plot calls them.
#include <cairo.h>

#include "graphics/plot.h"
#include "render/layout.h"
#include "render/render_options.h"

namespace tidemark::render {

// Grid, frame, ticks, tick labels, axis labels and the panel's title.
void draw_axes(cairo_t* cr, const Frame& f, const graphics::Panel& panel,
               const RenderOptions& options);

// One series: bars, curve or steps, error bars, symbols and missing-value marks,
// clipped to the plot area (the missing marks sit on the x axis).
void draw_series(cairo_t* cr, const Frame& f, const graphics::Series& series);

// Vertical markers with their labels, crosshairs and texts at data coordinates.
void draw_marks(cairo_t* cr, const Frame& f, const graphics::Panel& panel,
                const RenderOptions& options);

// The legend of the named series: in a box in the panel's legend corner, or in rows
// under its x label (BELOW).
void draw_legend(cairo_t* cr, const Frame& f, const graphics::Panel& panel,
                 const RenderOptions& options);

}  // namespace tidemark::render
