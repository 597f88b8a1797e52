#pragma once
// The panels of the two series of a two-series mode (Correlation, Concordance, X_ApEn),
// each with its concentration series and the options every mode's graph shares.
#include <span>

#include "data/dataset.h"
#include "graphics/plot_writer.h"

namespace tidemark::stats {

// A panel for A, then one for B, each of HEIGHT `height`, titled with its handle (the
// file name when there is none), an x axis labelled with the time column's header
// ("TIME" when blank), then graphics::write_common_options with its events as markers.
// Both panels write the same footers, "a.dat  vs. b.dat" lower left and "A  vs. B"
// lower right, so the footers coincide on the page instead of overlapping.
void series_panels(graphics::PlotWriter& w, const data::DataSet& a, const data::DataSet& b,
                   double height, std::span<const double> a_positions = {},
                   std::span<const double> b_positions = {});

}  // namespace tidemark::stats
