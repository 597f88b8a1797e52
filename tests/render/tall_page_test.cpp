// The page grows with its panels so that each plot area keeps a legible height.
// (cairo sets bitmap text a little differently once a vector surface has set text in the
// process, so these tests, which measure on SVG surfaces, run after the PNG goldens:
// the file's name sorts after render_test.cpp.)
#include <cairo.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "graphics/plot_parser.h"
#include "render/layout.h"
#include "render/renderer.h"
#include "render/text.h"

namespace tidemark::render {
namespace {

// DejaVu Sans: a line (ascent + descent) is (1901 + 483) / 2048 em (its hhea table, read
// with Python's struct). At the default 11 pt: panel titles 12.1, tick labels and notes
// 9.9, axis labels 11 pt.
constexpr double kLine = 2384.0 / 2048.0;
// A titled panel with both axis labels besides its plot area: three lines (title, tick
// labels, x label) and the gaps 5 + 4 + 5 + 5 + 5.
constexpr double kPanelLines = (12.1 + 9.9 + 11) * kLine + 24;
constexpr double kMargins = 2 * 14;
constexpr double kLeastArea = 110;  // 10 x the 11 pt font per unit of HEIGHT
// A legend row below a panel: 1.35 note lines, then two gaps.
constexpr double kLegendRow = 1.35 * 9.9 * kLine + 10;
// SVG sizes are written to a few decimals.
constexpr double kSvgRounding = 0.01;

std::string panels(const std::vector<const char*>& heights, const char* extra = "") {
  std::string s;
  for (const char* h : heights) {
    s += std::string("PANEL \"p\"") + (*h ? " HEIGHT " : "") + h +
         "\nXAXIS \"t\" RANGE 0 10\nYAXIS \"c\" RANGE -1 1\n" + extra;
  }
  return s;
}

graphics::Plot plot_of(const std::string& source) {
  const graphics::PlotParseResult p = graphics::parse_plot(source);
  EXPECT_TRUE(p.ok()) << p.message;
  return p.plot;
}

// The height attribute of an SVG file, in points.
double svg_height(const std::string& svg) {
  const std::size_t at = svg.find("height=\"");
  return at == std::string::npos ? 0 : std::stod(svg.substr(at + 8));
}

TEST(PageGrowth, PageIsJustTallEnoughForTheLeastPlotAreas) {
  const struct {
    const char* what;
    std::string source;
    RenderOptions options;
    double height;
  } kCases[] = {
      // 28 + 1 x (62.41 + 110) = 200.4 < 540: the page as set.
      {"one panel", panels({""}), {}, 540},
      {"two panels", panels({"", ""}), {}, 540},
      {"three panels", panels({"", "", ""}), {}, kMargins + 3 * (kPanelLines + kLeastArea)},
      {"five panels", panels({"", "", "", "", ""}), {}, kMargins + 5 * (kPanelLines + kLeastArea)},
      // the Correlation page's shape: HEIGHTs 1, 1, 1, 0.5, 0.5 add up to 4.
      {"five panels of unequal height",
       panels({"", "", "", "0.5", "0.5"}),
       {},
       kMargins + 5 * kPanelLines + 4 * kLeastArea},
      {"a legend row below each",
       panels({"", "", ""}, "LEGEND BELOW\nSERIES \"s\"\nLINE SOLID\nDATA\n1 0\nEND\n"),
       {},
       kMargins + 3 * (kPanelLines + kLegendRow + kLeastArea)},
      {"a page set taller than needed", panels({"", "", "", "", ""}), {.height = 1000}, 1000},
  };
  for (const auto& c : kCases) {
    const RenderResult r = render(plot_of(c.source), Format::kSvg, c.options);
    ASSERT_TRUE(r.ok()) << r.message;
    EXPECT_NEAR(svg_height(r.bytes), c.height, kSvgRounding) << c.what;
    EXPECT_NEAR(page_height(plot_of(c.source), c.options), c.height, kSvgRounding) << c.what;
  }
}

TEST(PageGrowth, GrownPageGivesEachPanelItsLeastAreaAndThreeLabels) {
  const graphics::Plot plot = plot_of(panels({"", "", "", "0.5", "0.5"}));
  cairo_surface_t* surface = cairo_recording_surface_create(CAIRO_CONTENT_COLOR, nullptr);
  cairo_t* cr = cairo_create(surface);
  RenderOptions options;
  options.height = grown_page_height(cr, plot, options);
  const PageLayout page = lay_out(cr, plot, options);
  cairo_destroy(cr);
  cairo_surface_destroy(surface);
  ASSERT_EQ(page.frames.size(), 5u);
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_NEAR(page.frames[i].height, plot.panels[i].height * kLeastArea, 1e-6) << i;
  }
  // 110 pt holds 110 / (1.7 x 11.52) = 5.6 labels: step 2 / 3.7 -> 0.5. 55 pt holds 2.8:
  // step 2 / 1.87 -> 1, which gives three.
  const auto labels = [&](std::size_t i) {
    std::vector<std::string> out;
    for (const graphics::Tick& t : page.frames[i].y.ticks) out.push_back(t.label);
    return out;
  };
  EXPECT_EQ(labels(0), (std::vector<std::string>{"-1.0", "-0.5", "0", "0.5", "1.0"}));
  EXPECT_EQ(labels(4), (std::vector<std::string>{"-1", "0", "1"}));
}

TEST(PageGrowth, PageStopsAtTheLargestSizeAllowed) {
  // 64 panels in a 48 pt font would need about 64 x 770 pt; the page stops at 14,400 pt
  // (at 144 dpi and 720 pt wide that is 20.7 million pixels, within the 100 million).
  std::vector<const char*> many(64, "");
  EXPECT_DOUBLE_EQ(page_height(plot_of(panels(many)), {.font_size = 48}), 14400);
  // At 600 dpi the pixel limit comes first: 1e8 / (720 x 600 / 72) / (600 / 72) = 2000 pt.
  EXPECT_NEAR(page_height(plot_of(panels(many)), {.dpi = 600}), 2000, 1e-6);
}

TEST(YLabelFit, LongTextIsCutWithAnEllipsisAtWholeCharacters) {
  cairo_surface_t* surface = cairo_recording_surface_create(CAIRO_CONTENT_COLOR, nullptr);
  cairo_t* cr = cairo_create(surface);
  use_font(cr, {}, Role::kLabel);
  const std::string label = "Concentration (µg/l)";
  EXPECT_EQ(shortened_to(cr, label, text_width(cr, label)), label);
  // Room for "Concentration (µ…" but not for one more character: the cut keeps the µ
  // whole, and the blank before "(" is dropped when the cut falls after it.
  EXPECT_EQ(shortened_to(cr, label, text_width(cr, "Concentration (µ…")), "Concentration (µ…");
  EXPECT_EQ(shortened_to(cr, label, text_width(cr, "Concentration (…") - 0.01), "Concentration…");
  EXPECT_EQ(shortened_to(cr, label, text_width(cr, "…")), "…");
  EXPECT_EQ(shortened_to(cr, label, 0), "");
  cairo_destroy(cr);
  cairo_surface_destroy(surface);
}

}  // namespace
}  // namespace tidemark::render
