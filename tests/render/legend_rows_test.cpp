#include "render/legend_rows.h"

#include <cairo.h>
#include <gtest/gtest.h>

#include <string>

#include "graphics/plot_parser.h"
#include "render/layout.h"
#include "render/text.h"

namespace tidemark::render {
namespace {

// A panel with a legend below it and series named `names` ("" keeps one out of it).
graphics::Panel panel_of(const std::vector<std::string>& names) {
  std::string source = "PANEL \"p\"\nLEGEND BELOW\n";
  for (const std::string& n : names) source += "SERIES \"" + n + "\"\nDATA\n1 1\nEND\n";
  const graphics::PlotParseResult p = graphics::parse_plot(source);
  EXPECT_TRUE(p.ok()) << p.message;
  return p.plot.panels.at(0);
}

TEST(LegendRows, EntriesFillRowsInOrderAndWrapOnlyWhenTheNextDoesNotFit) {
  cairo_surface_t* surface = cairo_recording_surface_create(CAIRO_CONTENT_COLOR, nullptr);
  cairo_t* cr = cairo_create(surface);
  const RenderOptions options;
  const graphics::Panel panel =
      panel_of({"ACF LH", "PACF LH", "", "ACF Testosterone", "PACF Testosterone"});
  use_font(cr, options, Role::kNote);
  std::vector<double> widths;  // of each named entry: sample, gap, name
  for (const graphics::Series& s : panel.series) {
    if (!s.name.empty()) widths.push_back(kLegendSample + kGap + text_width(cr, s.name));
  }
  // Room for all four in a row, for exactly the first two, and for less than one.
  const double all = widths[0] + widths[1] + widths[2] + widths[3] + 3 * kLegendSpacing;
  const double two = widths[0] + widths[1] + kLegendSpacing;
  const struct {
    double width;
    std::vector<int> rows;  // of the entries, in order
  } kCases[] = {{all, {0, 0, 0, 0}}, {two + 1, {0, 0, 1, 2}}, {10, {0, 1, 2, 3}}};
  for (const auto& c : kCases) {
    const LegendRows rows = legend_rows(cr, panel, options, c.width);
    std::vector<int> got;
    std::vector<std::size_t> series;
    for (const LegendEntry& e : rows.entries) {
      got.push_back(e.row);
      series.push_back(e.series);
    }
    EXPECT_EQ(got, c.rows) << c.width;
    EXPECT_EQ(series, (std::vector<std::size_t>{0, 1, 3, 4})) << c.width;  // "" left out
    EXPECT_EQ(rows.rows, c.rows.back() + 1) << c.width;
    EXPECT_DOUBLE_EQ(rows.height(), rows.rows * legend_row_height(cr, options));
    // A full row starts at the left edge; a single entry that fits is centred.
    if (c.width == all) {
      EXPECT_NEAR(rows.entries[0].x, 0, 1e-9);
    }
    if (c.width == two + 1) {
      EXPECT_NEAR(rows.entries[2].x, (c.width - widths[2]) / 2, 1e-9);
    }
  }
  cairo_destroy(cr);
  cairo_surface_destroy(surface);
}

}  // namespace
}  // namespace tidemark::render
