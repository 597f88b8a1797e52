#include "stats/modes/correlation_series_panel.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "graphics/plot_parser.h"
#include "shell/session_fixture.h"

namespace tidemark::stats {
namespace {

using testing_support::data_set;

struct Case {
  const char* a_handle;
  const char* b_handle;
  std::vector<std::string> titles;  // of the two panels
  std::string handle_footer;        // every page text at the lower right
};

// Two series whose panels each write the footers: the texts at one corner must be one
// text, or they overprint each other. Expected texts written out by hand.
TEST(SeriesPanels, BothPanelsWriteTheSameFootersNamingBothSeries) {
  const Case kCases[] = {
      {"LH", "T", {"LH", "T"}, "LH  vs. T"},
      {"", "", {"a.dat", "b.dat"}, ""},  // no handles: titled by file, no handle footer
  };
  const std::vector<double> events = {10, 20};
  for (const Case& c : kCases) {
    graphics::PlotWriter w;
    data::DataSet a = data_set("a.dat", c.a_handle, 4);
    data::DataSet b = data_set("b.dat", c.b_handle, 3);
    a.headers[data::kY] = "LH";
    b.headers[data::kY] = "";
    series_panels(w, a, b, {.height = 0.5, .a_positions = events});
    const graphics::PlotParseResult p = graphics::parse_plot(w.text());
    ASSERT_TRUE(p.ok()) << p.message;
    ASSERT_EQ(p.plot.panels.size(), 2u);
    for (std::size_t i = 0; i < 2; ++i) {
      EXPECT_EQ(p.plot.panels[i].title, c.titles[i]);
      EXPECT_EQ(p.plot.panels[i].height, 0.5);
    }
    // Each y axis says the data's own header; without one the conditioner's "CONC".
    EXPECT_EQ(p.plot.panels[0].y_axis.label, "LH");
    EXPECT_EQ(p.plot.panels[1].y_axis.label, "CONC");
    EXPECT_EQ(p.plot.panels[0].series.at(0).y.size(), 4u);
    EXPECT_EQ(p.plot.panels[1].series.at(0).y.size(), 3u);
    EXPECT_EQ(p.plot.panels[0].markers.size(), 2u);  // A's events only
    EXPECT_TRUE(p.plot.panels[1].markers.empty());
    ASSERT_EQ(p.plot.page_texts.size(), 4u);
    for (const graphics::Label& t : p.plot.page_texts) {
      EXPECT_EQ(t.text, t.x < 0.5 ? "a.dat  vs. b.dat" : c.handle_footer) << c.a_handle;
    }
  }
}

}  // namespace
}  // namespace tidemark::stats
