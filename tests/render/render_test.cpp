#include <cairo.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "core/file_replace.h"
#include "graphics/plot_parser.h"
#include "render/layout.h"
#include "render/renderer.h"
#include "render/svg_shapes.h"

namespace tidemark::render {
namespace {

const std::string kData = TIDEMARK_FIXTURES "/graphics/";

// Golden images are the default page at 72 dpi: 720 x 540 pixels. Set
// TIDEMARK_UPDATE_GOLDEN=1 to write them afresh (then look at them before committing).
const RenderOptions kGoldenOptions{.dpi = 72};

// A pixel differs when a channel differs by more than this (anti-aliasing and font
// hinting move edges by less); an image differs when more than kMaxDifferentPixels do.
constexpr int kChannelTolerance = 64;
constexpr double kMaxDifferentPixels = 0.0005;  // 0.05 %, about 190 of 388,800

std::string read_file(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

graphics::Plot plot_of(const std::string& source, const graphics::OptionStates& states = {}) {
  const graphics::PlotParseResult p = graphics::parse_plot(source, states);
  EXPECT_TRUE(p.ok()) << p.message;
  return p.plot;
}

struct Image {
  cairo_surface_t* surface;
  explicit Image(const std::string& png) {
    struct Reader {
      const std::string* bytes;
      std::size_t at = 0;
    } reader{&png};
    surface = cairo_image_surface_create_from_png_stream(
        [](void* closure, unsigned char* data, unsigned int length) {
          auto* r = static_cast<Reader*>(closure);
          if (r->at + length > r->bytes->size()) return CAIRO_STATUS_READ_ERROR;
          std::copy_n(r->bytes->data() + r->at, length, data);
          r->at += length;
          return CAIRO_STATUS_SUCCESS;
        },
        &reader);
  }
  ~Image() { cairo_surface_destroy(surface); }
  bool ok() const { return cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS; }
  int width() const { return cairo_image_surface_get_width(surface); }
  int height() const { return cairo_image_surface_get_height(surface); }
};

// The share of pixels that differ between two PNG images of the same size; 1 when the
// sizes differ or one cannot be read.
double difference(const std::string& png_a, const std::string& png_b) {
  Image a(png_a), b(png_b);
  if (!a.ok() || !b.ok() || a.width() != b.width() || a.height() != b.height()) return 1;
  cairo_surface_flush(a.surface);
  cairo_surface_flush(b.surface);
  const unsigned char* pa = cairo_image_surface_get_data(a.surface);
  const unsigned char* pb = cairo_image_surface_get_data(b.surface);
  const int stride = cairo_image_surface_get_stride(a.surface);
  long differing = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const unsigned char* qa = pa + y * stride + 4 * x;
      const unsigned char* qb = pb + y * stride + 4 * x;
      for (int c = 0; c < 3; ++c) {
        if (std::abs(qa[c] - qb[c]) > kChannelTolerance) {
          ++differing;
          break;
        }
      }
    }
  }
  return static_cast<double>(differing) / (a.width() * a.height());
}

std::string png_of(const graphics::Plot& plot, const RenderOptions& options = kGoldenOptions) {
  const RenderResult r = render(plot, Format::kPng, options);
  EXPECT_TRUE(r.ok()) << r.message;
  return r.bytes;
}

class Golden : public ::testing::TestWithParam<const char*> {};

TEST_P(Golden, ReferenceSourceRendersLikeItsGoldenImage) {
  const std::string name = GetParam();
  const std::string png = png_of(plot_of(read_file(kData + name + ".grf")));
  const std::string golden_path = kData + name + ".png";
  if (std::getenv("TIDEMARK_UPDATE_GOLDEN")) {
    ASSERT_TRUE(core::replace_file(golden_path, png).ok());
    GTEST_SKIP() << "wrote " << golden_path;
  }
  EXPECT_LE(difference(png, read_file(golden_path)), kMaxDifferentPixels) << golden_path;
}

INSTANTIATE_TEST_SUITE_P(Render, Golden, ::testing::Values("pulse_series", "styles"));

TEST(GoldenComparison, OneMisplacedPointIsCaught) {
  // The comparison must see a real fault: one sample of the pulse series moved up by a
  // quarter (with its error bar and the two curve pieces through it).
  graphics::Plot plot = plot_of(read_file(kData + "pulse_series.grf"));
  graphics::Series& lh = plot.panels.at(0).series.at(0);
  lh.y.at(60) *= 1.25;
  EXPECT_GT(difference(png_of(plot), read_file(kData + "pulse_series.png")), kMaxDifferentPixels);
}

TEST(RenderStructure, SvgHoldsOneMarkerPerDrawablePoint) {
  // Nine rows: one missing and one negative (not drawable on the log axis), so 7 squares.
  const std::string source =
      "PANEL \"p\"\nYAXIS \"y\" LOG\nSERIES \"s\"\nSYMBOL SQUARE\nCOLOR #123456\nDATA\n"
      "1 1\n2 2\n3 MISSING\n4 -1\n5 5\n6 6\n7 7\n8 8\n9 9\nEND\n";
  const RenderResult r = render(plot_of(source), Format::kSvg, {});
  ASSERT_TRUE(r.ok()) << r.message;
  EXPECT_EQ(testing_support::closed_subpaths(r.bytes, testing_support::kCountedFill), 7);
}

TEST(RenderStructure, LogAxisOfTheLaidOutPanelHasItsDecades) {
  const graphics::Plot plot =
      plot_of("PANEL \"p\"\nYAXIS \"y\" LOG\nSERIES \"s\"\nLINE SOLID\nDATA\n0 0.2\n1 450\nEND\n");
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 10, 10);
  cairo_t* cr = cairo_create(surface);
  const PageLayout page = lay_out(cr, plot, {});
  cairo_destroy(cr);
  cairo_surface_destroy(surface);
  // 0.2 .. 450 rounded out to 0.1 .. 1000: four decades, each labelled.
  std::vector<std::string> decades;
  for (const graphics::Tick& t : page.frames.at(0).y.ticks) {
    if (t.major) decades.push_back(t.label);
  }
  EXPECT_EQ(decades, (std::vector<std::string>{"0.1", "1", "10", "100", "1000"}));
}

TEST(RenderStructure, AnUncheckedBlockDrawsNothing) {
  const std::string base = "PANEL \"p\"\nXAXIS \"t\" RANGE 0 10\nYAXIS \"c\" RANGE 0 10\n";
  const std::string block =
      "#IFCHECKED \"Extra\" .NOT.CHECKED\nVLINE 5 \"x\"\nCROSSHAIR 3 3 1 1\n"
      "SERIES \"e\"\nSYMBOL CIRCLE\nDATA\n1 1\n9 9\nEND\n#ENDIF\n";
  const std::string without = png_of(plot_of(base));
  EXPECT_EQ(difference(png_of(plot_of(base + block)), without), 0.0);
  EXPECT_GT(difference(png_of(plot_of(base + block, {{"Extra", true}})), without), 0.0);
}

TEST(RenderStructure, NotesMoveTheTopPanelDownByTheirLines) {
  // A note line is the note font's ascent + descent. DejaVu Sans has (1901 + 483) / 2048
  // em (its hhea table, read with Python's struct), notes are 0.9 x 11 = 9.9 pt, so a line
  // is 11.52422 pt, and the last note is followed by the 5 pt gap of the layout. An
  // undrawn note reserves nothing. The bottom of the plot area stays where it is.
  constexpr double kNoteLine = 2384.0 / 2048.0 * 9.9;
  constexpr double kGapBelowNotes = 5;
  // cairo keeps path coordinates in 24.8 fixed point, each within 1/256 pt of its value.
  constexpr double kSvgRounding = 2.0 / 256;
  const std::string base =
      "PAGE \"Title\"\nPANEL \"p\"\nXAXIS \"t\" RANGE 0 10\n"
      "YAXIS \"c\" RANGE 0 10\n";
  const std::string hidden = "#IFCHECKED \"More\" .NOT.CHECKED\nNOTE \"hidden\"\n#ENDIF\n";
  const auto frame_of = [](const std::string& source) {
    const RenderResult r = render(plot_of(source), Format::kSvg, {});
    EXPECT_TRUE(r.ok()) << r.message;
    return testing_support::first_closed_span(r.bytes, testing_support::kFrameStroke)
        .value_or(testing_support::VerticalSpan{});
  };
  const testing_support::VerticalSpan without = frame_of(base);
  ASSERT_GT(without.bottom, without.top);
  EXPECT_NEAR(frame_of(base + hidden).top, without.top, kSvgRounding);
  for (int n : {1, 3, 16}) {
    std::string notes;
    for (int i = 0; i < n; ++i) notes += "NOTE \"a note\"\n";
    const testing_support::VerticalSpan with = frame_of(notes + base + hidden);
    EXPECT_NEAR(with.top - without.top, n * kNoteLine + kGapBelowNotes, kSvgRounding) << n;
    EXPECT_NEAR(with.bottom, without.bottom, kSvgRounding) << n;
  }
}

TEST(RenderFormats, EveryFormatComesOutWithItsSignature) {
  const graphics::Plot plot = plot_of(read_file(kData + "styles.grf"));
  const struct {
    Format format;
    std::string signature;
  } kFormats[] = {{Format::kPng, "\x89PNG"},
                  {Format::kSvg, "<?xml"},
                  {Format::kPdf, "%PDF-"},
                  {Format::kPs, "%!PS-Adobe"},
                  {Format::kEps, "%!PS-Adobe-3.0 EPSF"}};
  for (const auto& f : kFormats) {
    const RenderResult r = render(plot, f.format, {});
    ASSERT_TRUE(r.ok()) << r.message;
    EXPECT_EQ(r.bytes.substr(0, f.signature.size()), f.signature);
  }
}

TEST(RenderFormats, OptionsOutsideTheirLimitsAreRefused) {
  const graphics::Plot plot = plot_of("PAGE \"x\"\n");
  EXPECT_FALSE(render(plot, Format::kPng, {.width = 10}).ok());
  EXPECT_FALSE(render(plot, Format::kPng, {.width = 14400, .height = 14400, .dpi = 1200}).ok());
  EXPECT_FALSE(render(plot, Format::kSvg, {.font_size = 0}).ok());
}

TEST(RenderFormats, FormatsAreNamedByExtensionOrName) {
  EXPECT_EQ(format_named("graph.PNG"), Format::kPng);
  EXPECT_EQ(format_named("a/b.eps"), Format::kEps);
  EXPECT_EQ(format_named("pdf"), Format::kPdf);
  EXPECT_EQ(format_named("graph.grf"), std::nullopt);
}

TEST(RenderRobustness, ExtremeValuesAndMalformedTextDrawWithoutError) {
  const std::string source =
      "PAGE \"bad \xC3\x28 text \xFF\"\nPANEL \"p\"\nXAXIS \"t\" RANGE 1 1.0000000000000002\n"
      "SERIES \"s\"\nSYMBOL CIRCLE\nLINE SOLID\nBARS\nERRORBARS\nDATA\n"
      "1e300 -1e300 1e300\n1 1 1e-300\n1 1\nEND\nCROSSHAIR 1 1 1e300 1e300\n"
      "TEXT DATA 1 1 \"\xE0\x80\xAF\"\n";
  for (Format f : {Format::kPng, Format::kSvg}) {
    const RenderResult r = render(plot_of(source), f, {});
    EXPECT_TRUE(r.ok()) << r.message;
  }
}

}  // namespace
}  // namespace tidemark::render
