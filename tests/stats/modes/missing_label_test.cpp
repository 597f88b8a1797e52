// The missing-value option of the two-series graphs: Correlation and Concordance call it
// "Show Missing Values"; the series panels of X_ApEn keep the common "Mark Missing
// Values".
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "graphics/plot_parser.h"
#include "shell/session_fixture.h"
#include "stats/modes/concordance_graph.h"
#include "stats/modes/correlation_graph.h"
#include "stats/modes/correlation_series_panel.h"

namespace tidemark::stats {
namespace {

using testing_support::data_set;

std::vector<std::string> option_labels(const std::string& source) {
  const graphics::PlotParseResult p = graphics::parse_plot(source);
  EXPECT_TRUE(p.ok()) << p.message;
  std::vector<std::string> labels;
  for (const auto& o : p.options) labels.push_back(o.label);
  return labels;
}

bool has(const std::vector<std::string>& labels, const char* label) {
  return std::find(labels.begin(), labels.end(), label) != labels.end();
}

TEST(MissingValuesOption, IsShowMissingValuesInCorrelationAndConcordance) {
  const data::DataSet a = data_set("a.dat", "A", 6), b = data_set("b.dat", "B", 6);
  const std::vector<double> y = {1, 3, 2, 5, 4, 6};
  const CorrelationAnalysis analysis = correlation_analysis(y, y, 2);
  ConcordanceReport report;
  graphics::PlotWriter panels;
  series_panels(panels, a, b, {.height = 0.5});
  const struct {
    const char* mode;
    std::string source;
    const char* label;
  } kCases[] = {
      {"Correlation", correlation_graph(analysis, a, b, 6, 10), "Show Missing Values"},
      {"Concordance", concordance_graph(report, a, b), "Show Missing Values"},
      {"X_ApEn's panels", panels.text(), "Mark Missing Values"},
  };
  for (const auto& c : kCases) {
    const std::vector<std::string> labels = option_labels(c.source);
    EXPECT_TRUE(has(labels, c.label)) << c.mode << ": " << testing::PrintToString(labels);
    EXPECT_TRUE(has(labels, "Position Markers")) << c.mode;
    const char* other = std::string(c.label) == "Show Missing Values" ? "Mark Missing Values"
                                                                      : "Show Missing Values";
    EXPECT_FALSE(has(labels, other)) << c.mode;
  }
}

}  // namespace
}  // namespace tidemark::stats
