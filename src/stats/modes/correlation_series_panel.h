#pragma once
// The panels of the two series of a two-series mode (Correlation, Concordance, X_ApEn),
// each with its concentration series and the options every mode's graph shares.
#include <optional>
#include <span>

#include "data/dataset.h"
#include "graphics/plot_writer.h"

namespace tidemark::stats {

// A time range fixed for the x axes (both ends given, low < high), or automatic.
struct TimeAxis {
  std::optional<double> low{};
  std::optional<double> high{};
};

// The first to the last sample time of either series, widened by 4 % of the span on
// each side as an automatic axis would be: panels of both series and of their events
// drawn on it line up in time. Automatic when there are fewer than two distinct times.
TimeAxis shared_time_axis(const data::DataSet& a, const data::DataSet& b);

// A panel for A, then one for B, each of HEIGHT `height`, titled with its handle (the
// file name when there is none), an x axis labelled with the time column's header
// ("TIME" when blank) over `time_axis`, then graphics::write_common_options with its
// events as markers. Both panels write the same footers, "a.dat  vs. b.dat" lower left
// and "A  vs. B" lower right, so the footers coincide on the page instead of
// overlapping.
struct SeriesPanelOptions {
  double height = 0.5;
  std::span<const double> a_positions{};
  std::span<const double> b_positions{};
  TimeAxis time_axis{};
  // The missing-value option's label: "Show Missing Values" (Correlation, Concordance),
  // else "Mark Missing Values".
  bool show_missing_label = false;
};
void series_panels(graphics::PlotWriter& w, const data::DataSet& a, const data::DataSet& b,
                   const SeriesPanelOptions& options);

}  // namespace tidemark::stats
