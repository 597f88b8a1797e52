#pragma once
// What a panel's automatic axis ranges must hold: every drawable point of its series
// (with error bars and bar widths), its markers and its crosshairs.
#include "graphics/axis_scale.h"
#include "graphics/plot.h"

namespace tidemark::graphics {

struct PanelExtent {
  Extent x;
  Extent y;
};

// The extent of the panel's contents on its own axis scales. A bar series adds its
// base 0 on a linear y axis; text is not counted.
PanelExtent panel_extent(const Panel& panel);

// The width of the bars of `series` in x units: the width it states, else 0.8 times the
// smallest positive spacing of its x values (1 when there is none).
double bar_width(const Series& series);

}  // namespace tidemark::graphics
