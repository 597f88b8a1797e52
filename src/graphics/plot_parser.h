#pragma once
// Reads a graph source (docs/plot-language.md) into a Plot, drawing the option blocks
// in the states the user has set. Any text is accepted as input: a source that breaks
// the language gives the first error with its line number, never a crash.
//
//   const graphics::ParsedPlot p = graphics::parse_plot(source, {{"Show Error Bars", false}});
//   if (!p.ok) report(p.message);  // "line 12: a LOG axis needs a positive range"
#include <string>
#include <string_view>
#include <vector>

#include "graphics/plot.h"
#include "graphics/plot_options.h"

namespace tidemark::graphics {

struct ParsedPlot {
  bool ok = false;
  std::string message{};  // "line N: what is wrong" when not ok
  int line = 0;           // N
  Plot plot{};
  std::vector<PlotOption> options{};  // the check boxes, in order of first appearance
};

// Longest line a source may hold.
inline constexpr std::size_t kMaxSourceLine = 100'000;

// Reads `source`; an option named in `states` is drawn in that state, the others in
// their defaults. Every line is checked for its syntax; whether a statement fits where
// it stands is checked for the lines drawn.
ParsedPlot parse_plot(std::string_view source, const OptionStates& states = {});

}  // namespace tidemark::graphics
