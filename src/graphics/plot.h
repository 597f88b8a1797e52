#pragma once
// A graph as the parser builds it from a source and the renderer draws it: a page of
// panels stacked from top to bottom, each with two axes, series, markers and texts,
// under the page title and the notes.
// Option blocks are resolved by then: the graph holds only what is drawn.
#include <string>
#include <vector>

#include "graphics/plot_style.h"
#include "graphics/plot_writer.h"

namespace tidemark::graphics {

// Text at a point: data coordinates in a panel, page fractions on the page.
struct Label {
  double x = 0;
  double y = 0;
  std::string text{};
  Align align = Align::kLeft;
};

// A vertical marker line across a panel at data x, with an optional label at its top.
struct Marker {
  double x = 0;
  std::string label{};
};

// Bars from x-dx to x+dx at y and from y-dy to y+dy at x.
struct Crosshair {
  double x = 0;
  double y = 0;
  double dx = 0;
  double dy = 0;
};

// One series: rows of x, y and error, a missing value held as core::kMissing (an error
// a row did not give is missing too). `index` is the series' place in its panel
// (0-based), which picks the AUTO symbol, dash and colour.
struct Series {
  std::string name{};
  SeriesStyle style{};
  int index = 0;
  std::vector<double> x{};
  std::vector<double> y{};
  std::vector<double> err{};
};

struct Panel {
  std::string title{};
  double height = 1.0;
  AxisSpec x_axis{};
  AxisSpec y_axis{};
  Place legend = Place::kNone;
  std::vector<Series> series{};
  std::vector<Marker> markers{};
  std::vector<Crosshair> crosshairs{};
  std::vector<Label> texts{};  // at data coordinates
};

struct Plot {
  std::string title{};
  std::vector<Panel> panels{};
  std::vector<Label> page_texts{};   // at page fractions from the lower left corner
  std::vector<std::string> notes{};  // lines under the page title, in the order written
};

}  // namespace tidemark::graphics
