#include "graphics/plot_writer.h"

#include <fmt/format.h>

#include <cassert>
#include <cmath>

#include "core/missing.h"

namespace tidemark::graphics {

namespace {

// The text in double quotes, an inner quote doubled; line breaks and other control
// characters become blanks, since a statement is one line.
std::string quoted(std::string_view text) {
  std::string out = "\"";
  for (char c : text) {
    if (c == '"') {
      out += "\"\"";
    } else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
      out += ' ';
    } else {
      out += c;
    }
  }
  out += '"';
  return out;
}

// A data value: its shortest exact form, or MISSING for a missing or non-finite one.
template <typename T>
void append_value(std::string& out, T v) {
  if (core::is_missing(static_cast<double>(v)) || !std::isfinite(v)) {
    out += "MISSING";
  } else {
    fmt::format_to(std::back_inserter(out), "{}", v);
  }
}

template <typename T>
void append_rows(std::string& out, std::span<const T> x, std::span<const T> y,
                 std::span<const T> err) {
  assert(x.size() == y.size() && (err.empty() || err.size() == x.size()));
  out += "DATA\n";
  for (std::size_t i = 0; i < x.size(); ++i) {
    append_value(out, x[i]);
    out += ' ';
    append_value(out, y[i]);
    if (!err.empty()) {
      out += ' ';
      append_value(out, err[i]);
    }
    out += '\n';
  }
  out += "END\n";
}

}  // namespace

void PlotWriter::comment(std::string_view text) {
  fmt::format_to(std::back_inserter(text_), "! {}\n", text);
}

void PlotWriter::page(std::string_view title) {
  fmt::format_to(std::back_inserter(text_), "PAGE {}\n", quoted(title));
}

void PlotWriter::note(std::string_view text) {
  fmt::format_to(std::back_inserter(text_), "NOTE {}\n", quoted(text));
}

void PlotWriter::panel(std::string_view title, double height) {
  fmt::format_to(std::back_inserter(text_), "PANEL {}", quoted(title));
  if (height != 1.0) fmt::format_to(std::back_inserter(text_), " HEIGHT {}", height);
  text_ += '\n';
}

void PlotWriter::axis(std::string_view keyword_text, const AxisSpec& axis_spec) {
  fmt::format_to(std::back_inserter(text_), "{} {} {}", keyword_text, quoted(axis_spec.label),
                 keyword(axis_spec.scale));
  if (axis_spec.low && axis_spec.high) {
    fmt::format_to(std::back_inserter(text_), " RANGE {} {}", *axis_spec.low, *axis_spec.high);
  }
  if (axis_spec.tick_step)
    fmt::format_to(std::back_inserter(text_), " TICKS {}", *axis_spec.tick_step);
  text_ += '\n';
}

void PlotWriter::x_axis(const AxisSpec& axis_spec) {
  axis("XAXIS", axis_spec);
}
void PlotWriter::y_axis(const AxisSpec& axis_spec) {
  axis("YAXIS", axis_spec);
}

void PlotWriter::legend(Place place) {
  fmt::format_to(std::back_inserter(text_), "LEGEND {}\n", keyword(place));
}

void PlotWriter::series(std::string_view name, const SeriesStyle& s, std::span<const float> x,
                        std::span<const float> y, std::span<const float> err) {
  begin_series(name);
  style(s);
  data(x, y, err);
}

void PlotWriter::series(std::string_view name, const SeriesStyle& s, std::span<const double> x,
                        std::span<const double> y, std::span<const double> err) {
  begin_series(name);
  style(s);
  data(x, y, err);
}

void PlotWriter::begin_series(std::string_view name) {
  fmt::format_to(std::back_inserter(text_), "SERIES {}\n", quoted(name));
}

void PlotWriter::symbol(Symbol s, double size) {
  fmt::format_to(std::back_inserter(text_), "SYMBOL {}", keyword(s));
  if (size > 0) fmt::format_to(std::back_inserter(text_), " {}", size);
  text_ += '\n';
}

void PlotWriter::line(Dash dash, double width) {
  fmt::format_to(std::back_inserter(text_), "LINE {}", keyword(dash));
  if (width > 0) fmt::format_to(std::back_inserter(text_), " {}", width);
  text_ += '\n';
}

void PlotWriter::colour(Colour c) {
  fmt::format_to(std::back_inserter(text_), "COLOR {}\n", keyword(c));
}

void PlotWriter::error_bars() {
  text_ += "ERRORBARS\n";
}
void PlotWriter::steps() {
  text_ += "STEPS\n";
}
void PlotWriter::mark_missing() {
  text_ += "MARK_MISSING\n";
}

void PlotWriter::bars(double width) {
  text_ += "BARS";
  if (width > 0) fmt::format_to(std::back_inserter(text_), " {}", width);
  text_ += '\n';
}

void PlotWriter::style(const SeriesStyle& s) {
  if (s.symbol != Symbol::kNone) symbol(s.symbol, s.symbol_size);
  if (s.line != Dash::kNone) line(s.line, s.line_width);
  if (!s.colour.automatic) colour(s.colour);
  if (s.error_bars) error_bars();
  if (s.steps) steps();
  if (s.bars) bars(s.bar_width);
  if (s.mark_missing) mark_missing();
}

void PlotWriter::data(std::span<const float> x, std::span<const float> y,
                      std::span<const float> err) {
  append_rows(text_, x, y, err);
}

void PlotWriter::data(std::span<const double> x, std::span<const double> y,
                      std::span<const double> err) {
  append_rows(text_, x, y, err);
}

void PlotWriter::vline(double x, std::string_view label) {
  fmt::format_to(std::back_inserter(text_), "VLINE {}", x);
  if (!label.empty()) fmt::format_to(std::back_inserter(text_), " {}", quoted(label));
  text_ += '\n';
}

void PlotWriter::crosshair(double x, double y, double dx, double dy) {
  fmt::format_to(std::back_inserter(text_), "CROSSHAIR {} {} {} {}\n", x, y, dx, dy);
}

void PlotWriter::text_at_data(double x, double y, std::string_view text, Align align) {
  fmt::format_to(std::back_inserter(text_), "TEXT DATA {} {} {} {}\n", x, y, quoted(text),
                 keyword(align));
}

void PlotWriter::text_at_page(double fx, double fy, std::string_view text, Align align) {
  fmt::format_to(std::back_inserter(text_), "TEXT PAGE {} {} {} {}\n", fx, fy, quoted(text),
                 keyword(align));
}

void PlotWriter::option_line(std::string_view label, When when, std::string_view default_word) {
  fmt::format_to(std::back_inserter(text_), "{} {}",
                 when == When::kChecked ? "#IFCHECKED" : "#IF.NOT.CHECKED", quoted(label));
  if (!default_word.empty()) fmt::format_to(std::back_inserter(text_), " {}", default_word);
  text_ += '\n';
  ++open_options_;
}

void PlotWriter::begin_option(std::string_view label, When when, bool default_checked) {
  option_line(label, when, default_checked ? "CHECKED" : ".NOT.CHECKED");
}

void PlotWriter::begin_option(std::string_view label, When when) {
  option_line(label, when, {});
}

void PlotWriter::end_option() {
  assert(open_options_ > 0);
  text_ += "#ENDIF\n";
  --open_options_;
}

}  // namespace tidemark::graphics
