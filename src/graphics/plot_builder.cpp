#include "graphics/plot_builder.h"

#include <fmt/format.h>

namespace tidemark::graphics {

std::string PlotBuilder::add(Statement statement) {
  if (in_data_ && !std::holds_alternative<statement::Row>(statement) &&
      !std::holds_alternative<statement::End>(statement)) {
    return "statement inside DATA ... END (END missing?)";
  }
  return std::visit([this](auto&& s) { return (*this)(std::move(s)); }, std::move(statement));
}

std::string PlotBuilder::finish() const {
  if (series_)
    return fmt::format("series \"{}\" still open at the end (END missing)", series_->name);
  return {};
}

std::string PlotBuilder::need_panel(std::string_view what) const {
  if (plot_.panels.empty()) return fmt::format("{} before the first PANEL", what);
  return need_no_series(what);
}

std::string PlotBuilder::need_no_series(std::string_view what) const {
  if (series_)
    return fmt::format("{} inside SERIES \"{}\" (DATA ... END missing?)", what, series_->name);
  return {};
}

std::string PlotBuilder::need_attribute_place(std::string_view what, std::size_t kind) {
  if (!series_) return fmt::format("{} outside a series", what);
  const std::uint32_t bit = 1u << kind;
  if (attributes_ & bit) return fmt::format("{} given twice in series \"{}\"", what, series_->name);
  attributes_ |= bit;
  return {};
}

std::string PlotBuilder::operator()(statement::Page&& s) {
  if (titled_) return "PAGE given twice";
  titled_ = true;
  plot_.title = std::move(s.title);
  return need_no_series("PAGE");
}

std::string PlotBuilder::operator()(statement::Note&& s) {
  if (auto e = need_no_series("NOTE"); !e.empty()) return e;
  if (plot_.notes.size() >= kMaxNotes) return fmt::format("more than {} notes", kMaxNotes);
  plot_.notes.push_back(std::move(s.text));
  return {};
}

std::string PlotBuilder::operator()(statement::Panel&& s) {
  if (auto e = need_no_series("PANEL"); !e.empty()) return e;
  if (plot_.panels.size() >= kMaxPanels) return fmt::format("more than {} panels", kMaxPanels);
  plot_.panels.push_back({.title = std::move(s.title), .height = s.height});
  index_in_panel_ = 0;
  return {};
}

std::string PlotBuilder::operator()(statement::Axis&& s) {
  if (auto e = need_panel(s.is_x ? "XAXIS" : "YAXIS"); !e.empty()) return e;
  (s.is_x ? plot_.panels.back().x_axis : plot_.panels.back().y_axis) = std::move(s.axis);
  return {};
}

std::string PlotBuilder::operator()(statement::Legend&& s) {
  if (auto e = need_panel("LEGEND"); !e.empty()) return e;
  plot_.panels.back().legend = s.place;
  return {};
}

std::string PlotBuilder::operator()(statement::Series&& s) {
  if (auto e = need_panel("SERIES"); !e.empty()) return e;
  series_ = Series{.name = std::move(s.name), .index = static_cast<int>(index_in_panel_++)};
  attributes_ = 0;
  return {};
}

std::string PlotBuilder::operator()(statement::Symbol&& s) {
  if (auto e = need_attribute_place("SYMBOL", 0); !e.empty()) return e;
  series_->style.symbol = s.symbol;
  series_->style.symbol_size = s.size;
  return {};
}

std::string PlotBuilder::operator()(statement::Line&& s) {
  if (auto e = need_attribute_place("LINE", 1); !e.empty()) return e;
  series_->style.line = s.dash;
  series_->style.line_width = s.width;
  return {};
}

std::string PlotBuilder::operator()(statement::Colour&& s) {
  if (auto e = need_attribute_place("COLOR", 2); !e.empty()) return e;
  series_->style.colour = s.colour;
  return {};
}

std::string PlotBuilder::operator()(statement::ErrorBars&&) {
  if (auto e = need_attribute_place("ERRORBARS", 3); !e.empty()) return e;
  series_->style.error_bars = true;
  return {};
}

std::string PlotBuilder::operator()(statement::Steps&&) {
  if (auto e = need_attribute_place("STEPS", 4); !e.empty()) return e;
  if (series_->style.bars) return "STEPS and BARS exclude each other";
  series_->style.steps = true;
  return {};
}

std::string PlotBuilder::operator()(statement::Bars&& s) {
  if (auto e = need_attribute_place("BARS", 5); !e.empty()) return e;
  if (series_->style.steps) return "STEPS and BARS exclude each other";
  series_->style.bars = true;
  series_->style.bar_width = s.width;
  return {};
}

std::string PlotBuilder::operator()(statement::MarkMissing&&) {
  if (auto e = need_attribute_place("MARK_MISSING", 6); !e.empty()) return e;
  series_->style.mark_missing = true;
  return {};
}

std::string PlotBuilder::operator()(statement::Data&&) {
  if (!series_) return "DATA outside a series (SERIES missing?)";
  in_data_ = true;
  return {};
}

std::string PlotBuilder::operator()(statement::End&&) {
  if (!in_data_) return series_ ? "END before DATA" : "END without SERIES and DATA";
  plot_.panels.back().series.push_back(std::move(*series_));
  series_.reset();
  in_data_ = false;
  return {};
}

std::string PlotBuilder::operator()(statement::VLine&& s) {
  if (auto e = need_panel("VLINE"); !e.empty()) return e;
  plot_.panels.back().markers.push_back(std::move(s.marker));
  return {};
}

std::string PlotBuilder::operator()(statement::Cross&& s) {
  if (auto e = need_panel("CROSSHAIR"); !e.empty()) return e;
  plot_.panels.back().crosshairs.push_back(s.crosshair);
  return {};
}

std::string PlotBuilder::operator()(statement::Text&& s) {
  if (s.on_page) {
    if (auto e = need_no_series("TEXT"); !e.empty()) return e;
    plot_.page_texts.push_back(std::move(s.label));
    return {};
  }
  if (auto e = need_panel("TEXT DATA"); !e.empty()) return e;
  plot_.panels.back().texts.push_back(std::move(s.label));
  return {};
}

std::string PlotBuilder::operator()(statement::Row&& s) {
  if (!in_data_) return "data row outside DATA ... END";
  if (++rows_ > kMaxRows) return fmt::format("more than {} data rows", kMaxRows);
  series_->x.push_back(s.x);
  series_->y.push_back(s.y);
  series_->err.push_back(s.err);
  return {};
}

}  // namespace tidemark::graphics
