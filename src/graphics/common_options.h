#pragma once
// The options every mode's graph shares: how the concentration series is drawn, its
// scale, its labels and the event marks. One function writes them all into the panel
// a template has opened, so every mode's graph offers the same check boxes.
//
//   w.panel(set.handle);
//   w.x_axis({.label = "Time (min)"});
//   graphics::write_common_options(w, {.file_name = set.file_name, .handle = set.handle,
//                                      .x = set.x(), .y = set.y(), .sd = set.dy(),
//                                      .positions = peak_times});
#include <span>
#include <string>
#include <string_view>

#include "graphics/plot.h"
#include "graphics/plot_writer.h"

namespace tidemark::graphics {

// The labels of the common options. The Pulse family says "Position Crosshairs" and
// "Show Missing Values" where the other modes say "Position Markers" and "Mark Missing
// Values"; Correlation and Concordance say "Position Markers" and "Show Missing Values".
inline constexpr std::string_view kPositionMarkers = "Position Markers";
inline constexpr std::string_view kPositionCrosshairs = "Position Crosshairs";
inline constexpr std::string_view kLogScale = "Log Concentration Scale";
inline constexpr std::string_view kShowFileName = "Show File Name";
inline constexpr std::string_view kShowFileHandle = "Show File Handle";
inline constexpr std::string_view kShowDataPoints = "Show Data Points";
inline constexpr std::string_view kShowErrorBars = "Show Error Bars";
inline constexpr std::string_view kShowConnectingCurve = "Show Connecting Curve";
inline constexpr std::string_view kMarkMissingValues = "Mark Missing Values";
inline constexpr std::string_view kShowMissingValues = "Show Missing Values";

// The default state of each common option, as the template writes it.
struct CommonDefaults {
  bool position_markers = true;
  bool log_scale = false;
  bool file_name = true;
  bool file_handle = true;
  bool data_points = true;
  bool error_bars = true;
  bool connecting_curve = true;
  bool missing_values = true;
};

// What the common options show for one concentration series.
struct CommonGraph {
  std::string_view y_label{};  // the concentration's header ("LH"), as the data name it
  std::string_view file_name{};
  std::string_view handle{};
  // The lower-right page text when it is not the handle: a graph of two series names
  // both there, so that the footers of its panels coincide instead of overlapping.
  std::string_view handle_text{};
  std::span<const float> x{};   // sample times
  std::span<const float> y{};   // concentrations (missing below -9.9E34)
  std::span<const float> sd{};  // their standard deviations; empty for none
  // Event times, drawn as numbered vertical markers ("Position Markers").
  std::span<const double> positions{};
  // The Pulse family's events (position and height with the half-widths of the bars
  // drawn through them), drawn as crosshairs; when `pulse_family` is set the
  // option labels are "Position Crosshairs" and "Show Missing Values".
  std::span<const Crosshair> crosshairs{};
  bool pulse_family = false;
  // "Show Missing Values" without the Pulse family's crosshairs (Correlation, Concordance).
  bool show_missing_label = false;
  CommonDefaults defaults{};
};

// Writes, into the current panel: the y axis (log under "Log Concentration Scale",
// else linear), the data series named after the handle with its points, error bars,
// curve and missing marks each in its option block, the event markers or crosshairs,
// and the file name (lower left of the page) and handle (lower right, or `handle_text`)
// as page texts.
void write_common_options(PlotWriter& w, const CommonGraph& graph);

}  // namespace tidemark::graphics
