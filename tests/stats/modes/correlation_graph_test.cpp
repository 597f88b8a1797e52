#include "stats/modes/correlation_graph.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "graphics/plot_parser.h"
#include "shell/session_fixture.h"

namespace tidemark::stats {
namespace {

using testing_support::data_set;

struct RangeCase {
  const char* what;
  std::vector<double> a, b;
  int max_lag;
  double acf_low, acf_high;  // of the ACF and PACF panel
  double lagged_high;        // of the cross-correlation and Kendall panels (low = -high)
};

// The y axes of the correlation panels. Worked by hand:
// - 1..12 (deviations -5.5..5.5, sum of squares 143): ACF(1) = 107.25 / 143 = 0.75 and
//   its S.E. sqrt((N - 1) / (N (N + 2))) = sqrt(11 / 168), so the error bar reaches
//   0.75 + 0.2559 = 1.0059 > 1 at the top; nothing passes -1 (the lowest ACF, -0.41 at
//   lag 8, less its S.E. sqrt(4 / 168) = 0.15, is -0.57), so the bottom stays at -1.
//   B's ACF ± S.E. stays within -0.89 .. 0.58 and its PACF within ±0.53 (the same sums
//   and the Durbin-Levinson recursion in a few lines of Python).
// - three points: the band 2 / sqrt(3) = 1.1547 lies beyond ±1 and sets every range.
const RangeCase kRanges[] = {
    {"a trend",
     {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12},
     {5, 3, 6, 4, 5, 7, 4, 6, 5, 3, 6, 4},
     10,
     -1,
     0.75 + std::sqrt(11.0 / 168),
     1},
    {"three points",
     {1, 2, 3},
     {3, 1, 2},
     2,
     -2 / std::sqrt(3.0),
     2 / std::sqrt(3.0),
     2 / std::sqrt(3.0)},
};

graphics::Plot graph_of(const RangeCase& c) {
  data::DataSet a = data_set("a.dat", "A", static_cast<int>(c.a.size()));
  data::DataSet b = data_set("b.dat", "B", static_cast<int>(c.b.size()));
  const CorrelationAnalysis analysis = correlation_analysis(c.a, c.b, c.max_lag);
  const int n = static_cast<int>(c.a.size());
  const graphics::PlotParseResult p = graphics::parse_plot(correlation_graph(analysis, a, b, n, 10));
  EXPECT_TRUE(p.ok()) << p.message;
  return p.plot;
}

TEST(CorrelationGraph, PanelsSpanMinusOneToOneUnlessTheirMarksNeedMore) {
  constexpr double kWritten = 1e-12;  // the source keeps the doubles exact
  for (const RangeCase& c : kRanges) {
    const graphics::Plot plot = graph_of(c);
    ASSERT_EQ(plot.panels.size(), 5u) << c.what;
    for (std::size_t i = 0; i < 3; ++i) {
      const double high = i == 0 ? c.acf_high : c.lagged_high;
      const double low = i == 0 ? c.acf_low : -c.lagged_high;
      EXPECT_NEAR(plot.panels[i].y_axis.high.value_or(0), high, kWritten) << c.what << i;
      EXPECT_NEAR(plot.panels[i].y_axis.low.value_or(0), low, kWritten) << c.what << i;
    }
  }
}

TEST(CorrelationGraph, AutocorrelationPanelNamesItsSeriesInALegendBelow) {
  const graphics::Plot plot = graph_of(kRanges[0]);
  const graphics::Panel& acf = plot.panels.at(0);
  EXPECT_EQ(acf.legend, graphics::Place::kBelow);
  std::vector<std::string> names;
  for (const graphics::Series& s : acf.series) names.push_back(s.name);
  EXPECT_EQ(names, (std::vector<std::string>{std::string(kBandName), "ACF A", "PACF A", "ACF B",
                                             "PACF B"}));
  // A's and B's curves differ in colour and symbol, and none takes the band's vermilion.
  EXPECT_NE(acf.series[1].style.colour, acf.series[3].style.colour);
  for (std::size_t i = 1; i < acf.series.size(); ++i) {
    EXPECT_NE(acf.series[i].style.colour, acf.series[0].style.colour) << names[i];
    for (std::size_t j = 1; j < i; ++j) {
      EXPECT_NE(acf.series[i].style.symbol, acf.series[j].style.symbol) << names[i];
    }
  }
}

}  // namespace
}  // namespace tidemark::stats
