#pragma once
// The first panel of a one-series graph: the data set's handle as its title, its time
// header (or "TIME") on the x axis, and the common options drawing its points, curve and
// error bars with the concentration header on the y axis.
#include "data/dataset.h"
#include "graphics/plot_writer.h"

namespace tidemark::stats {

void write_data_set_panel(graphics::PlotWriter& w, const data::DataSet& set);

}  // namespace tidemark::stats
