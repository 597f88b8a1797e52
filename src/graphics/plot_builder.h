#pragma once
// Builds a Plot from the statements of the lines that are drawn, checking that each
// stands where it may: axes, legends, series, markers and data texts inside a panel,
// attributes between SERIES and DATA, rows between DATA and END; the page title, notes
// and page texts anywhere outside a series.
#include <cstdint>
#include <optional>
#include <string>

#include "graphics/plot.h"
#include "graphics/plot_statement.h"

namespace tidemark::graphics {

class PlotBuilder {
 public:
  static constexpr std::size_t kMaxPanels = 64;
  static constexpr std::size_t kMaxRows = 10'000'000;
  // Notes take page height from the panels, so a page holds only a few.
  static constexpr std::size_t kMaxNotes = 16;

  // Adds one statement; returns an error message, empty when it fits.
  std::string add(Statement statement);

  // After the last line: the error for a series still open, else empty.
  std::string finish() const;

  Plot& plot() { return plot_; }

 private:
  std::string need_panel(std::string_view what) const;
  std::string need_no_series(std::string_view what) const;
  std::string need_attribute_place(std::string_view what, std::size_t kind);

  std::string operator()(statement::Page&& s);
  std::string operator()(statement::Note&& s);
  std::string operator()(statement::Panel&& s);
  std::string operator()(statement::Axis&& s);
  std::string operator()(statement::Legend&& s);
  std::string operator()(statement::Series&& s);
  std::string operator()(statement::Symbol&& s);
  std::string operator()(statement::Line&& s);
  std::string operator()(statement::Colour&& s);
  std::string operator()(statement::ErrorBars&& s);
  std::string operator()(statement::Steps&& s);
  std::string operator()(statement::Bars&& s);
  std::string operator()(statement::MarkMissing&& s);
  std::string operator()(statement::Data&& s);
  std::string operator()(statement::End&& s);
  std::string operator()(statement::VLine&& s);
  std::string operator()(statement::Cross&& s);
  std::string operator()(statement::Text&& s);
  std::string operator()(statement::Row&& s);

  Plot plot_;
  bool titled_ = false;
  std::optional<Series> series_;  // the series between SERIES and END
  bool in_data_ = false;
  std::uint32_t attributes_ = 0;  // bit per statement kind given in the open series
  std::size_t rows_ = 0;
  std::size_t index_in_panel_ = 0;
};

}  // namespace tidemark::graphics
