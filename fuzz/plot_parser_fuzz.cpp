// Reads the input as a graph source, once with every option at its default and once
// with every option flipped; checks that each outcome is either a plot whose series
// have rows of three equal columns, or a message "line N: ..." with N within the
// source, and that the options found are distinct. A plot read is then drawn on a
// small bitmap page, which must succeed whatever its values.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>

#include "graphics/plot_parser.h"
#include "render/renderer.h"

namespace {

using tidemark::graphics::OptionStates;
using tidemark::graphics::PlotParseResult;

void check(bool invariant) {
  if (!invariant) std::abort();
}

void check_outcome(const PlotParseResult& p, std::string_view source) {
  std::set<std::string> labels;
  for (const auto& option : p.options) check(labels.insert(option.label).second);
  if (!p.ok()) {
    const std::size_t lines =
        static_cast<std::size_t>(std::count(source.begin(), source.end(), '\n')) + 1;
    check(p.message.rfind("line ", 0) == 0 && p.line >= 1 &&
          static_cast<std::size_t>(p.line) <= lines);
    check(p.plot.panels.empty());
    return;
  }
  for (const auto& panel : p.plot.panels) {
    for (const auto& series : panel.series) {
      check(series.x.size() == series.y.size() && series.y.size() == series.err.size());
    }
  }
  const tidemark::render::RenderOptions small{.width = 72, .height = 72, .dpi = 36};
  check(tidemark::render::render(p.plot, tidemark::render::Format::kPng, small).ok());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view source(reinterpret_cast<const char*>(data), size);
  const PlotParseResult first = tidemark::graphics::parse_plot(source);
  check_outcome(first, source);
  OptionStates flipped;
  for (const auto& option : first.options) flipped[option.label] = !option.default_checked;
  check_outcome(tidemark::graphics::parse_plot(source, flipped), source);
  return 0;
}
