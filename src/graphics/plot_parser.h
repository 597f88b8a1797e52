#pragma once
// Reads a graph source (docs/plot-language.md) into a Plot, drawing the option blocks
// in the states the user has set. Any text is accepted as input: a source that breaks
// the language gives the first error with its line number, never a crash.
//
//   const graphics::PlotParseResult p = graphics::parse_plot(source, {{"Show Error Bars", false}});
//   if (!p.ok()) report(p.message);  // "line 12: a LOG axis needs a positive range"
#include <string>
#include <string_view>
#include <vector>

#include "graphics/plot.h"
#include "graphics/plot_options.h"

namespace tidemark::graphics {

// How a reading ended: the whole source read, or the kind of the first error: a line
// that breaks the language's syntax, an option block opened, closed or named wrongly,
// or a statement that does not fit where it stands.
enum class PlotParseStatus { kParsed, kSyntaxError, kBadOptionBlock, kBadStatement };

struct PlotParseResult {
  PlotParseStatus status = PlotParseStatus::kSyntaxError;
  std::string message{};  // "line N: what is wrong" when not ok
  int line = 0;           // N
  Plot plot{};
  std::vector<PlotOption> options{};  // the check boxes, in order of first appearance

  bool ok() const { return status == PlotParseStatus::kParsed; }
};

// Longest line a source may hold.
inline constexpr std::size_t kMaxSourceLine = 100'000;

// Reads `source`; an option named in `states` is drawn in that state, the others in
// their defaults. Every line is checked for its syntax; whether a statement fits where
// it stands is checked for the lines drawn.
PlotParseResult parse_plot(std::string_view source, const OptionStates& states = {});

}  // namespace tidemark::graphics
