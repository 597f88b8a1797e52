#pragma once
// PlotWriter: emits a graph source in the plot description language (docs/
// plot-language.md) for the graph templates of the analysis modes. Each call writes one
// or more complete lines; numbers are written in their shortest form that reads back to
// the same value, and missing values (below -9.9E34) as MISSING, so a source written
// twice from the same results is the same byte for byte.
//
//   graphics::PlotWriter w;
//   w.page("Cosinor Fit");
//   w.panel("LH");
//   w.x_axis({.label = "Time (min)"});
//   w.y_axis({.label = "Concentration", .scale = graphics::Scale::kLog});
//   w.series("Fit", {.line = graphics::Dash::kSolid}, fit_x, fit_y);
//   w.begin_option("Show Residuals", graphics::When::kChecked, false);
//   w.series("Residuals", {.symbol = graphics::Symbol::kCross}, x, residuals);
//   w.end_option();
//   core::replace_file(path, w.text());
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "graphics/plot_style.h"

namespace tidemark::graphics {

// An axis of a panel: its label, scale, fixed range (automatic when either end is
// absent) and tick step (automatic when absent; ignored on a log axis).
struct AxisSpec {
  std::string label{};
  Scale scale = Scale::kLinear;
  std::optional<double> low{};
  std::optional<double> high{};
  std::optional<double> tick_step{};
};

// How a series is drawn; each member left at its default writes no line. A size or
// width of 0 leaves the reader's default (symbol 5 pt, line 1.25 pt, bars 0.8 of the
// smallest x spacing).
struct SeriesStyle {
  Symbol symbol = Symbol::kNone;
  double symbol_size = 0;
  Dash line = Dash::kNone;
  double line_width = 0;
  Colour colour{};  // AUTO: the panel's series cycle
  bool error_bars = false;
  bool steps = false;
  bool bars = false;
  double bar_width = 0;
  bool mark_missing = false;
};

// Which state of an option a block is drawn in: "#IFCHECKED" or "#IF.NOT.CHECKED".
enum class When { kChecked, kNotChecked };

class PlotWriter {
 public:
  // "! text": a comment line.
  void comment(std::string_view text);

  // PAGE "title".
  void page(std::string_view title);
  // NOTE "text": a line of small text under the page title; notes stack in the order
  // written and the panels move down to make room for them.
  void note(std::string_view text);
  // PANEL "title" [HEIGHT h]: starts a panel; height is its share of the page (1 is
  // not written).
  void panel(std::string_view title, double height = 1.0);
  // XAXIS / YAXIS "label" scale [RANGE lo hi] [TICKS step].
  void x_axis(const AxisSpec& axis);
  void y_axis(const AxisSpec& axis);
  // LEGEND place.
  void legend(Place place);

  // A whole series: SERIES "name", the attributes of `style`, DATA, the rows, END.
  // `x` and `y` have the same length; `err` is empty or of that length too.
  void series(std::string_view name, const SeriesStyle& style, std::span<const float> x,
              std::span<const float> y, std::span<const float> err = {});
  void series(std::string_view name, const SeriesStyle& style, std::span<const double> x,
              std::span<const double> y, std::span<const double> err = {});

  // A series piece by piece, so that single attributes can stand in option blocks:
  // begin_series, any attribute calls, then data(), which writes the rows and closes
  // the series.
  void begin_series(std::string_view name);
  void symbol(Symbol symbol, double size = 0);
  void line(Dash dash, double width = 0);
  void colour(Colour colour);
  void error_bars();
  void steps();
  void bars(double width = 0);
  void mark_missing();
  void style(const SeriesStyle& style);  // the attribute lines of `style`
  void data(std::span<const float> x, std::span<const float> y, std::span<const float> err = {});
  void data(std::span<const double> x, std::span<const double> y, std::span<const double> err = {});

  // VLINE x ["label"]: a vertical marker across the panel.
  void vline(double x, std::string_view label = {});
  // CROSSHAIR x y dx dy: bars x-dx..x+dx at y and y-dy..y+dy at x.
  void crosshair(double x, double y, double dx, double dy);
  // TEXT DATA x y "text" align: text at data coordinates of the panel.
  void text_at_data(double x, double y, std::string_view text, Align align = Align::kLeft);
  // TEXT PAGE fx fy "text" align: text at page fractions from the lower left corner.
  void text_at_page(double fx, double fy, std::string_view text, Align align = Align::kLeft);

  // "#IFCHECKED "label" CHECKED" (or #IF.NOT.CHECKED, .NOT.CHECKED): opens an option
  // block; the lines until end_option() are drawn only in the state `when`. The
  // second form leaves the default to an earlier block of the same option.
  void begin_option(std::string_view label, When when, bool default_checked);
  void begin_option(std::string_view label, When when);
  // "#ENDIF".
  void end_option();

  // The source written so far; every block opened has been closed when the template
  // is complete.
  const std::string& text() const { return text_; }
  int open_options() const { return open_options_; }

 private:
  void option_line(std::string_view label, When when, std::string_view default_word);
  void axis(std::string_view keyword, const AxisSpec& axis);

  std::string text_;
  int open_options_ = 0;
};

}  // namespace tidemark::graphics
