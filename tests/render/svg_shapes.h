#pragma once
// Structural checks of the SVG files cairo writes.
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

}  // namespace tidemark::testing_support
