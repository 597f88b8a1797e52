#include "graphics/plot_statement.h"

#include <fmt/format.h>

#include "core/missing.h"
#include "core/text.h"

namespace tidemark::graphics {

namespace {

// Why a statement is refused; thrown by Words and caught in read_statement.
struct Refusal {
  std::string message;
};

// Reads the words after a statement's keyword, in order; every failed expectation is a
// Refusal naming the statement.
class Words {
 public:
  explicit Words(const std::vector<Token>& tokens)
      : tokens_(tokens), name_(core::to_upper(tokens[0].text)) {}

  const std::string& name() const { return name_; }
  bool more() const { return next_ < tokens_.size(); }

  [[noreturn]] void refuse(std::string_view what) const {
    throw Refusal{fmt::format("{}: {}", name_, what)};
  }

  std::string text(std::string_view what) {
    if (!more() || tokens_[next_].kind != Token::Kind::kText) {
      expected(fmt::format("{} in double quotes", what));
    }
    return tokens_[next_++].text;
  }

  double number(std::string_view what) {
    if (!more() || tokens_[next_].kind != Token::Kind::kNumber) expected(what);
    return tokens_[next_++].number;
  }

  // A number within [low, high] when one follows, else `absent`.
  double optional_number(std::string_view what, double low, double high, double absent) {
    if (!more() || tokens_[next_].kind != Token::Kind::kNumber) return absent;
    const double v = number(what);
    if (v < low || v > high) refuse(fmt::format("{} must be from {} to {}", what, low, high));
    return v;
  }

  // The value the next word names through `lookup`.
  template <typename Lookup>
  auto named(std::string_view what, Lookup lookup) {
    if (!more() || tokens_[next_].kind == Token::Kind::kText) expected(what);
    const auto v = lookup(tokens_[next_].text);
    if (!v) refuse(fmt::format("unknown {} \"{}\"", what, tokens_[next_].text));
    ++next_;
    return *v;
  }

  // Consumes the next word when it is `keyword` (letter case ignored).
  bool accept(std::string_view keyword) {
    if (!more() || tokens_[next_].kind != Token::Kind::kWord ||
        core::to_upper(tokens_[next_].text) != keyword) {
      return false;
    }
    ++next_;
    return true;
  }

  void done() const {
    if (more()) refuse(fmt::format("unexpected \"{}\"", tokens_[next_].text));
  }

 private:
  [[noreturn]] void expected(std::string_view what) const {
    if (!more()) refuse(fmt::format("expected {}", what));
    refuse(fmt::format("expected {}, found \"{}\"", what, tokens_[next_].text));
  }

  const std::vector<Token>& tokens_;
  std::string name_;
  std::size_t next_ = 1;
};

// A data value: a number, with anything below -9.9E34 and the word MISSING missing.
double row_value(const Token& t) {
  if (t.kind == Token::Kind::kNumber) return core::is_missing(t.number) ? core::kMissing : t.number;
  if (t.kind == Token::Kind::kWord && core::to_upper(t.text) == "MISSING") return core::kMissing;
  throw Refusal{fmt::format("data row: expected a number or MISSING, found \"{}\"", t.text)};
}

statement::Row read_row(const std::vector<Token>& tokens) {
  if (tokens.size() < 2 || tokens.size() > 3) {
    throw Refusal{fmt::format("data row: expected 2 or 3 values, found {}", tokens.size())};
  }
  statement::Row row{row_value(tokens[0]), row_value(tokens[1]), core::kMissing};
  if (tokens.size() == 3) row.err = row_value(tokens[2]);
  return row;
}

statement::Axis read_axis(Words& w, bool is_x) {
  statement::Axis a{is_x, {}};
  a.axis.label = w.text("the axis label");
  if (w.accept("LOG")) {
    a.axis.scale = Scale::kLog;
  } else {
    w.accept("LINEAR");
  }
  if (w.accept("RANGE")) {
    a.axis.low = w.number("the low end of the range");
    a.axis.high = w.number("the high end of the range");
    if (!(*a.axis.low < *a.axis.high)) w.refuse("RANGE needs low < high");
    if (a.axis.scale == Scale::kLog && *a.axis.low <= 0) {
      w.refuse("a LOG axis needs a positive range");
    }
  } else {
    w.accept("AUTO");
  }
  if (w.accept("TICKS")) {
    a.axis.tick_step = w.number("the tick step");
    if (*a.axis.tick_step <= 0) w.refuse("the tick step must be positive");
  }
  return a;
}

statement::Text read_text(Words& w) {
  statement::Text t;
  if (w.accept("PAGE")) {
    t.on_page = true;
  } else if (!w.accept("DATA")) {
    w.refuse("expected DATA or PAGE");
  }
  t.label.x = w.number("x");
  t.label.y = w.number("y");
  if (t.on_page && (t.label.x < 0 || t.label.x > 1 || t.label.y < 0 || t.label.y > 1)) {
    w.refuse("page positions must be from 0 to 1");
  }
  t.label.text = w.text("the text");
  if (w.more()) t.label.align = w.named("alignment", align_named);
  return t;
}

statement::Cross read_crosshair(Words& w) {
  statement::Cross c;
  c.crosshair.x = w.number("x");
  c.crosshair.y = w.number("y");
  c.crosshair.dx = w.number("dx");
  c.crosshair.dy = w.number("dy");
  if (c.crosshair.dx < 0 || c.crosshair.dy < 0) w.refuse("dx and dy must not be negative");
  return c;
}

Statement read_keyword_statement(Words& w) {
  const std::string& k = w.name();
  if (k == "PAGE") return statement::Page{w.text("the page title")};
  if (k == "NOTE") return statement::Note{w.text("the note text")};
  if (k == "PANEL") {
    statement::Panel p{w.text("the panel title")};
    if (w.accept("HEIGHT")) {
      p.height = w.number("the height");
      if (p.height < 0.1 || p.height > 10) w.refuse("HEIGHT must be from 0.1 to 10");
    }
    return p;
  }
  if (k == "XAXIS" || k == "YAXIS") return read_axis(w, k == "XAXIS");
  if (k == "LEGEND") return statement::Legend{w.named("legend place", place_named)};
  if (k == "SERIES") return statement::Series{w.text("the series name")};
  if (k == "SYMBOL") {
    const Symbol s = w.named("symbol", symbol_named);
    return statement::Symbol{s, w.optional_number("the symbol size", 1, 30, 0)};
  }
  if (k == "LINE") {
    const Dash d = w.named("dash", dash_named);
    return statement::Line{d, w.optional_number("the line width", 0.25, 10, 0)};
  }
  if (k == "COLOR") return statement::Colour{w.named("colour", colour_named)};
  if (k == "ERRORBARS") return statement::ErrorBars{};
  if (k == "STEPS") return statement::Steps{};
  if (k == "BARS") return statement::Bars{w.optional_number("the bar width", 1e-300, 1e300, 0)};
  if (k == "MARK_MISSING") return statement::MarkMissing{};
  if (k == "DATA") return statement::Data{};
  if (k == "END") return statement::End{};
  if (k == "VLINE") {
    statement::VLine v{{w.number("x"), {}}};
    if (w.more()) v.marker.label = w.text("the marker label");
    return v;
  }
  if (k == "CROSSHAIR") return read_crosshair(w);
  if (k == "TEXT") return read_text(w);
  throw Refusal{fmt::format("unknown statement \"{}\"", k)};
}

bool starts_row(const Token& t) {
  return t.kind == Token::Kind::kNumber ||
         (t.kind == Token::Kind::kWord && core::to_upper(t.text) == "MISSING");
}

}  // namespace

ReadStatement read_statement(const std::vector<Token>& tokens) {
  try {
    if (starts_row(tokens[0])) return {read_row(tokens), {}};
    if (tokens[0].kind == Token::Kind::kText) {
      throw Refusal{fmt::format("expected a statement, found the text \"{}\"", tokens[0].text)};
    }
    Words w(tokens);
    Statement s = read_keyword_statement(w);
    w.done();
    return {std::move(s), {}};
  } catch (const Refusal& r) {
    return {{}, r.message};
  }
}

}  // namespace tidemark::graphics
