// Where the renderer puts what could hide data: the legend box, symbols on the edge of
// the plot area; and the text it draws whatever its bytes.
#include <cairo.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "graphics/plot_parser.h"
#include "render/layout.h"
#include "render/legend_place.h"
#include "render/renderer.h"
#include "render/text.h"

namespace tidemark::render {
namespace {

using graphics::Place;

graphics::Plot plot_of(const std::string& source) {
  const graphics::PlotParseResult p = graphics::parse_plot(source);
  EXPECT_TRUE(p.ok()) << p.message;
  return p.plot;
}

// A page of 400 x 300 points measured on a bitmap, as the PNG export draws it.
struct Page {
  RenderOptions options{.width = 400, .height = 300, .dpi = 72};
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 400, 300);
  cairo_t* cr = cairo_create(surface);
  ~Page() {
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
  }
};

// A panel on x 0..10, y 0..10, legend asked at the top right, with the points given.
std::string panel_with(const std::string& rows) {
  return "PANEL \"p\"\nXAXIS \"x\" RANGE 0 10\nYAXIS \"y\" RANGE 0 10\nLEGEND TOPRIGHT\n"
         "SERIES \"a long series name\"\nSYMBOL CIRCLE\nDATA\n" +
         rows + "END\n";
}

TEST(LegendPlace, TheBoxGoesToAFreeCornerElseBelowThePanel) {
  struct Case {
    const char* what;
    std::string rows;
    Place expected;
  };
  const Case cases[] = {
      {"nothing in the asked corner", "5 5\n1 1\n", Place::kTopRight},
      {"a point in the top right corner", "9.8 9.8\n5 5\n", Place::kTopLeft},
      {"points in both top corners", "9.8 9.8\n0.2 9.8\n5 5\n", Place::kBottomRight},
      {"the top corners and the bottom right", "9.8 9.8\n0.2 9.8\n9.8 0.2\n", Place::kBottomLeft},
      {"every corner", "9.8 9.8\n0.2 9.8\n9.8 0.2\n0.2 0.2\n", Place::kBelow},
  };
  for (const Case& c : cases) {
    Page page;
    const graphics::Plot placed =
        with_legends_placed(page.cr, plot_of(panel_with(c.rows)), page.options);
    EXPECT_EQ(placed.panels.at(0).legend, c.expected) << c.what;
  }
}

TEST(LegendPlace, TheEndOfAnErrorBarUnderTheBoxCountsAsData) {
  Page page;
  // The point lies at mid height; its error bar reaches into the top right corner.
  std::string source = panel_with("9.8 5 4.8\n");
  source.insert(source.find("DATA"), "ERRORBARS\n");
  const graphics::Plot plot = plot_of(source);
  EXPECT_EQ(with_legends_placed(page.cr, plot, page.options).panels.at(0).legend, Place::kTopLeft);
}

// A symbol at the top of a fixed y range (a correlation of exactly 1 on an axis that
// ends at 1) is drawn whole: its upper half shows above the frame.
TEST(EdgeSymbols, ASymbolOnTheFrameIsNotCutInHalf) {
  Page page;
  const graphics::Plot plot = plot_of(
      "PANEL \"p\"\nXAXIS \"x\" RANGE 0 10\nYAXIS \"y\" RANGE -1 1\nSERIES \"s\"\n"
      "SYMBOL SQUARE\nCOLOR #FF0000\nDATA\n5 1\nEND\n");
  cairo_set_source_rgb(page.cr, 1, 1, 1);
  cairo_paint(page.cr);
  draw_plot(page.cr, plot, page.options);
  cairo_surface_flush(page.surface);
  const Frame f = lay_out(page.cr, plot, page.options).frames.at(0);
  const int x = static_cast<int>(f.px(5));
  const unsigned char* data = cairo_image_surface_get_data(page.surface);
  const int stride = cairo_image_surface_get_stride(page.surface);
  // Some pixel of the four rows above the frame's top edge is the symbol's red.
  bool red_above = false;
  for (int y = static_cast<int>(f.top) - 4; y < static_cast<int>(f.top); ++y) {
    const auto pixel = *reinterpret_cast<const std::uint32_t*>(data + y * stride + 4 * x);
    red_above = red_above || (((pixel >> 16) & 0xFF) > 0xC0 && (pixel & 0xFF) < 0x60);
  }
  EXPECT_TRUE(red_above);
}

TEST(DrawableText, AnyBytesBecomeTextCairoDraws) {
  struct Case {
    std::string bytes, drawn;
  };
  // "µg/L" typed in Latin-1 is 0xB5 "g/L"; in UTF-8 µ is 0xC2 0xB5.
  const Case cases[] = {
      {"\xB5g/L", "\xC2\xB5g/L"},
      {"\xC2\xB5g/L", "\xC2\xB5g/L"},         // UTF-8 stays as it is
      {"caf\xE9", "caf\xC3\xA9"},             // Latin-1 é
      {"a\x80z", "a?z"},                      // no Latin-1 character there
      {std::string("a\0z", 3), "a?z"},        // NUL
      {"\xE0\x80\xAF", "\xC3\xA0?\xC2\xAF"},  // an overlong form: byte by byte
  };
  for (const Case& c : cases) EXPECT_EQ(drawable_text(c.bytes), c.drawn);
}

}  // namespace
}  // namespace tidemark::render
