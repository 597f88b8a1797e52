#include "stats/modes/concordance_graph.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "graphics/plot_parser.h"
#include "shell/session_fixture.h"

namespace tidemark::stats {
namespace {

using testing_support::data_set;

struct Case {
  const char* what;
  int a_points, b_points;  // sampled every 10 from 0
  std::optional<double> low, high;
  std::vector<std::string> row_names;  // the event panel's texts, A's first
};

// Worked by hand: times 0..240 (A, 25 points) and 0..120 (B) span 0..240, widened by
// 4 % of 240 = 9.6 on each side; the names stand 0.5 % of the 259.2 wide axis in from
// its left end. A single time of each series leaves the axes automatic and unnamed.
const Case kCases[] = {
    {"two series", 25, 13, -9.6, 249.6, {"A", "B"}},
    {"one time only", 1, 1, std::nullopt, std::nullopt, {}},
};

TEST(ConcordanceGraph, AllPanelsShareOneTimeAxisAndTheEventRowsAreNamed) {
  for (const Case& c : kCases) {
    ConcordanceReport report;
    report.a.events = {30, 100};
    report.b.events = {35};
    report.pairs = {{0, 0}};
    const graphics::PlotParseResult p = graphics::parse_plot(concordance_graph(
        report, data_set("a.dat", "A", c.a_points), data_set("b.dat", "B", c.b_points)));
    ASSERT_TRUE(p.ok()) << p.message;
    EXPECT_EQ(p.plot.panels.at(0).title, "");  // the page title names the event panel
    ASSERT_EQ(p.plot.panels.size(), 3u) << c.what;
    for (const graphics::Panel& panel : p.plot.panels) {
      ASSERT_EQ(panel.x_axis.low.has_value(), c.low.has_value()) << c.what;
      if (!c.low) continue;
      EXPECT_NEAR(*panel.x_axis.low, *c.low, 1e-9) << c.what << panel.title;
      EXPECT_NEAR(*panel.x_axis.high, *c.high, 1e-9) << c.what << panel.title;
    }
    std::vector<std::string> names;
    for (const graphics::Label& t : p.plot.panels[0].texts) {
      names.push_back(t.text);
      EXPECT_NEAR(t.x, -9.6 + 0.005 * 259.2, 1e-9);
    }
    EXPECT_EQ(names, c.row_names) << c.what;
    if (names.size() == 2) {
      EXPECT_EQ(p.plot.panels[0].texts[0].y, 1.25);  // above A's row at 1
      EXPECT_EQ(p.plot.panels[0].texts[1].y, 0.25);  // above B's row at 0
    }
  }
}

}  // namespace
}  // namespace tidemark::stats
