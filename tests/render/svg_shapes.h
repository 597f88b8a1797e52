#pragma once
// Structural checks of the SVG files cairo writes.
#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>

namespace tidemark::testing_support {

// Counts the closed sub-paths (each ends in "Z") of the SVG path elements filled with
// `fill` ("fill:rgb(7.058824%,20.392157%,33.72549%)" for #123456, as cairo writes it).
inline int closed_subpaths(const std::string& svg, const std::string& fill) {
  int n = 0;
  for (std::size_t at = svg.find(fill); at != std::string::npos; at = svg.find(fill, at + 1)) {
    const std::size_t d = svg.find(" d=\"", at);
    const std::size_t element_end = svg.find("/>", at);
    if (d == std::string::npos || d > element_end) continue;
    const std::size_t end = svg.find('"', d + 4);
    for (std::size_t i = d + 4; i < end; ++i) n += svg[i] == 'Z';
  }
  return n;
}

// The fill of #123456, the colour the structural tests give the shapes they count:
// 0x12/255, 0x34/255 and 0x56/255 as percentages.
inline const std::string kCountedFill = "fill:rgb(7.058824%,20.392157%,33.72549%)";

// The top and bottom y of a rectangle drawn as a closed sub-path.
struct VerticalSpan {
  double top = 0;
  double bottom = 0;
};

// The vertical span of the first closed sub-path ("M x y L ... Z") of the first path
// element stroked with `stroke` ("stroke:rgb(20%,20%,20%)"), or none.
inline std::optional<VerticalSpan> first_closed_span(const std::string& svg,
                                                     const std::string& stroke) {
  const std::size_t at = svg.find(stroke);
  if (at == std::string::npos) return std::nullopt;
  const std::size_t d = svg.find(" d=\"", at);
  if (d == std::string::npos) return std::nullopt;
  const std::size_t z = svg.find('Z', d);
  const std::size_t m = svg.rfind('M', z);
  if (z == std::string::npos || m == std::string::npos || m < d) return std::nullopt;
  // Numbers alternate x, y; only the y values count.
  std::optional<VerticalSpan> span;
  bool is_y = false;
  for (const char* p = svg.c_str() + m; p < svg.c_str() + z;) {
    char* end = nullptr;
    const double v = std::strtod(p, &end);
    if (end == p) {
      ++p;
      continue;
    }
    if (is_y) {
      if (!span) span = VerticalSpan{v, v};
      span->top = std::min(span->top, v);
      span->bottom = std::max(span->bottom, v);
    }
    is_y = !is_y;
    p = end;
  }
  return span;
}

// The stroke of the plot areas' frames (#333333).
inline const std::string kFrameStroke = "stroke:rgb(20%,20%,20%)";

}  // namespace tidemark::testing_support
