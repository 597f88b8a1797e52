#pragma once
// A panel with one data set's concentration series and the options every mode's graph
// shares, as the two-series modes (Correlation, Concordance) draw each of their series.
#include <span>
#include <string_view>

#include "data/dataset.h"
#include "graphics/plot_writer.h"

namespace tidemark::stats {

// PANEL titled with the handle (the file name when there is none), HEIGHT `height`, an
// x axis labelled with the time column's header ("TIME" when blank), then
// graphics::write_common_options with `file_names` as the file name text and
// `positions` as the event markers.
void series_panel(graphics::PlotWriter& w, const data::DataSet& set, std::string_view file_names,
                  double height, std::span<const double> positions = {});

}  // namespace tidemark::stats
