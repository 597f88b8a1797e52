#include "graphics/plot_writer.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/missing.h"
#include "graphics/common_options.h"

namespace tidemark::graphics {
namespace {

TEST(PlotWriter, WritesPanelsAxesAndSeriesAsTheLanguageSpellsThem) {
  PlotWriter w;
  w.page("Cluster8");
  w.note("Half-Life \"50\"");
  w.panel("LH \"24 h\"", 2);
  w.x_axis({.label = "Time (min)", .low = 0.0, .high = 1440.0, .tick_step = 240.0});
  w.y_axis({.label = "LH", .scale = Scale::kLog});
  w.legend(Place::kTopRight);
  const std::vector<float> x = {0.0f, 10.0f, 20.0f};
  const std::vector<float> y = {0.1f, core::kMissingF, 2.5f};
  const std::vector<float> e = {0.25f, 0.5f, 1e-7f};
  w.series("LH",
           {.symbol = Symbol::kCircle,
            .symbol_size = 4,
            .line = Dash::kDash,
            .colour = kBlue,
            .error_bars = true,
            .mark_missing = true},
           x, y, e);
  w.vline(250, "1");
  w.crosshair(600, 3.5, 12.5, 0.75);
  w.text_at_page(0.5, 0.02, "file\nname", Align::kCenter);
  // Written out by hand from the grammar: quotes doubled, a line break in a text
  // turned into a blank, 0.1f and 1e-7f in their shortest forms that read back to
  // the same float, a missing value as MISSING.
  EXPECT_EQ(w.text(),
            "PAGE \"Cluster8\"\n"
            "NOTE \"Half-Life \"\"50\"\"\"\n"
            "PANEL \"LH \"\"24 h\"\"\" HEIGHT 2\n"
            "XAXIS \"Time (min)\" LINEAR RANGE 0 1440 TICKS 240\n"
            "YAXIS \"LH\" LOG\n"
            "LEGEND TOPRIGHT\n"
            "SERIES \"LH\"\n"
            "SYMBOL CIRCLE 4\n"
            "LINE DASH\n"
            "COLOR BLUE\n"
            "ERRORBARS\n"
            "MARK_MISSING\n"
            "DATA\n"
            "0 0.1 0.25\n"
            "10 MISSING 0.5\n"
            "20 2.5 1e-07\n"
            "END\n"
            "VLINE 250 \"1\"\n"
            "CROSSHAIR 600 3.5 12.5 0.75\n"
            "TEXT PAGE 0.5 0.02 \"file name\" CENTER\n");
}

TEST(PlotWriter, OptionBlocksStateTheirDefaultOnlyWhenAsked) {
  PlotWriter w;
  w.begin_option("Show Residuals", When::kChecked, false);
  w.begin_option("Show Residuals", When::kNotChecked);
  EXPECT_EQ(w.open_options(), 2);
  w.end_option();
  w.end_option();
  EXPECT_EQ(w.open_options(), 0);
  EXPECT_EQ(w.text(),
            "#IFCHECKED \"Show Residuals\" .NOT.CHECKED\n"
            "#IF.NOT.CHECKED \"Show Residuals\"\n"
            "#ENDIF\n"
            "#ENDIF\n");
}

TEST(PlotWriter, ColoursWithoutANameAreWrittenInHex) {
  PlotWriter w;
  w.colour(Colour::rgb_of(0x12AB0F));
  w.colour(kVermilion);
  EXPECT_EQ(w.text(), "COLOR #12AB0F\nCOLOR VERMILION\n");
}

// Counts the lines of `text` that begin with `start`.
int lines_starting(const std::string& text, std::string_view start) {
  int n = 0;
  std::size_t at = 0;
  while (at < text.size()) {
    if (text.compare(at, start.size(), start) == 0) ++n;
    const std::size_t end = text.find('\n', at);
    if (end == std::string::npos) break;
    at = end + 1;
  }
  return n;
}

TEST(CommonOptions, WritesEveryCommonOptionInBalancedBlocks) {
  const std::vector<float> x = {0, 10}, y = {1, 2}, sd = {0.1f, 0.2f};
  const std::vector<double> positions = {5, 8};
  PlotWriter w;
  write_common_options(
      w, {.file_name = "LH.DAT", .handle = "LH", .x = x, .y = y, .sd = sd, .positions = positions});
  const std::string& t = w.text();
  EXPECT_EQ(w.open_options(), 0);
  for (std::string_view label :
       {kPositionMarkers, kLogScale, kShowFileName, kShowFileHandle, kShowDataPoints,
        kShowErrorBars, kShowConnectingCurve, kMarkMissingValues}) {
    EXPECT_NE(t.find(fmt::format("#IFCHECKED \"{}\"", label)), std::string::npos) << label;
  }
  EXPECT_EQ(lines_starting(t, "#IF"), lines_starting(t, "#ENDIF"));
  EXPECT_EQ(lines_starting(t, "VLINE"), 2);
  EXPECT_EQ(lines_starting(t, "YAXIS"), 2);  // one per state of the log option
  EXPECT_NE(t.find("#IFCHECKED \"Log Concentration Scale\" .NOT.CHECKED\n"), std::string::npos);
}

TEST(CommonOptions, PulseFamilyUsesCrosshairsAndItsOwnLabels) {
  const std::vector<float> x = {0}, y = {1};
  const std::vector<Crosshair> events = {{10, 2, 3, 0.5}};
  PlotWriter w;
  write_common_options(w, {.x = x, .y = y, .crosshairs = events, .pulse_family = true});
  const std::string& t = w.text();
  EXPECT_NE(t.find("#IFCHECKED \"Position Crosshairs\""), std::string::npos);
  EXPECT_NE(t.find("#IFCHECKED \"Show Missing Values\""), std::string::npos);
  EXPECT_EQ(t.find("Position Markers"), std::string::npos);
  EXPECT_EQ(t.find("ERRORBARS"), std::string::npos);  // no deviations given
  EXPECT_NE(t.find("CROSSHAIR 10 2 3 0.5\n"), std::string::npos);
}

}  // namespace
}  // namespace tidemark::graphics
