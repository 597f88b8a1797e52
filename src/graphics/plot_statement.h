#pragma once
// One line of a graph source read into a statement, checked for its words and values
// but not yet for where it stands (that is PlotBuilder's job). See docs/
// plot-language.md for the grammar.
#include <string>
#include <variant>
#include <vector>

#include "graphics/plot.h"
#include "graphics/plot_lexer.h"

namespace tidemark::graphics {

namespace statement {
struct Page {
  std::string title;
};
struct Note {
  std::string text;
};
struct Panel {
  std::string title;
  double height = 1;
};
struct Axis {
  bool is_x = true;
  AxisSpec axis;
};
struct Legend {
  Place place = Place::kNone;
};
struct Series {
  std::string name;
};
struct Symbol {
  graphics::Symbol symbol = graphics::Symbol::kNone;
  double size = 0;  // 0: the default size
};
struct Line {
  Dash dash = Dash::kNone;
  double width = 0;  // 0: the default width
};
struct Colour {
  graphics::Colour colour;
};
struct ErrorBars {};
struct Steps {};
struct Bars {
  double width = 0;  // 0: from the x spacing
};
struct MarkMissing {};
struct Data {};
struct End {};
struct VLine {
  Marker marker;
};
struct Cross {
  Crosshair crosshair;
};
struct Text {
  bool on_page = false;
  Label label;
};
struct Row {
  double x = 0;
  double y = 0;
  double err = 0;  // core::kMissing when the row has no third value
};
}  // namespace statement

using Statement =
    std::variant<statement::Page, statement::Note, statement::Panel, statement::Axis,
                 statement::Legend, statement::Series, statement::Symbol, statement::Line,
                 statement::Colour, statement::ErrorBars, statement::Steps, statement::Bars,
                 statement::MarkMissing, statement::Data, statement::End, statement::VLine,
                 statement::Cross, statement::Text, statement::Row>;

// The statement written in `tokens` (not empty, not a directive), or the message of
// what is wrong with it.
struct ReadStatement {
  Statement statement{};
  std::string error{};
};
ReadStatement read_statement(const std::vector<Token>& tokens);

}  // namespace tidemark::graphics
