// The summary-book columns of the two-series modes carry the numbers their listings
// show: each test runs the mode, reads the listing and compares every cell with it
// (to the listing's 5 or 3 significant digits), plus values known by hand.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "core/missing.h"
#include "data/secretion_events.h"
#include "shell/listing_values.h"
#include "shell/session_fixture.h"
#include "stats/modes/concordance_mode.h"
#include "stats/modes/correlation_mode.h"
#include "stats/modes/xapen_mode.h"

namespace tidemark::stats {
namespace {

using testing_support::SessionFixture;
using testing_support::text_lines;
using testing_support::value_after;

// Runs `commands` on sets `a` and `b`; the listing the last command showed.
std::string listing_of(SessionFixture& f, const data::DataSet& a, const data::DataSet& b,
                       const std::vector<std::string>& commands) {
  f.session->store().append(a);
  f.session->store().append(b);
  f.run(commands);
  EXPECT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
  return f.ui.texts.empty() ? "" : f.ui.texts.back();
}

// The cell `letters` of the current data set's row, its title checked.
float cell(const SessionFixture& f, const char* letters, const std::string& title) {
  const data::SummaryRow& row = f.session->store().current().summary;
  const auto found = row.find(letters);
  if (found == row.end()) {
    ADD_FAILURE() << "no cell " << letters;
    return std::nanf("");
  }
  EXPECT_EQ(found->second.title, title) << letters;
  return found->second.value;
}

// The numbers of the listing line that begins with `head`.
std::vector<double> row_numbers(const std::string& listing, const std::string& head) {
  for (const std::string& line : text_lines(listing)) {
    if (!line.starts_with(head)) continue;
    std::vector<double> values;
    const char* p = line.c_str() + head.size();
    for (char* end = nullptr;; p = end) {
      const double v = std::strtod(p, &end);
      if (end == p) break;
      values.push_back(v);
    }
    return values;
  }
  return {};
}

void expect_close(double cell_value, double listed, double digits = 5) {
  EXPECT_NEAR(cell_value, listed, std::abs(listed) * std::pow(10.0, 1 - digits) / 2 + 1e-30);
}

// The series of tests/fixtures/stats/correlation_reference.txt, every 10 minutes.
data::DataSet series(const std::string& name, const std::vector<float>& y) {
  data::DataSet set;
  set.file_name = set.handle = name;
  for (std::size_t i = 0; i < y.size(); ++i)
    set.push_point({10.0f * static_cast<float>(i), y[i], 0.1f, 1.0f, 0, 0, 0, 0});
  return set;
}

TEST(CorrelationSummary, FillsDgToDoWithTheListedMomentsAndTheLargestCrossCorrelation) {
  SessionFixture f(testing_support::only_mode(5, [](int) { return make_correlation_mode(); }));
  const std::string listing =
      listing_of(f, series("a.dat", {3, 1, 4, 1, 5, 9, 2, 6, 5, 3, 5, 8}),
                 series("b.dat", {2, 7, 1, 8, 2, 8, 1, 8, 2, 8, 4, 5}),
                 {"MODE Correlation", "SET max Lag = 4", "CORR_CALCULATE", "CORR_VIEW"});
  // By hand: the mean of A is 52 / 12, of B 56 / 12.
  EXPECT_FLOAT_EQ(cell(f, "DN", "Correlation Mean A"), 52.0f / 12);
  EXPECT_FLOAT_EQ(cell(f, "DP", "Correlation Mean B"), 56.0f / 12);
  expect_close(cell(f, "DO", "Correlation Variance A"), value_after(listing, "Variance of A-series = "));
  expect_close(cell(f, "DQ", "Correlation Variance B"), value_after(listing, "Variannce of B-series = "));
  // The cross table's rows after its heading: lag, covariance, correlation, S.E.
  const std::string cross = listing.substr(listing.find("CrossCovar"));
  int best_lag = -4;
  double best = -2;
  for (int lag = -4; lag <= 4; ++lag) {
    const auto row = row_numbers(cross, fmt::format("{:5d}", lag));
    ASSERT_EQ(row.size(), 3u) << lag;
    if (row[1] > best) best = row[1], best_lag = lag;
    if (lag == 0) expect_close(cell(f, "DR", "Correlation CrossCorr Lag 0"), row[1]);
  }
  EXPECT_EQ(cell(f, "DS", "Correlation Best Lag"), static_cast<float>(best_lag));
  expect_close(cell(f, "DT", "Correlation Best CrossCorr"), best);
  // S.E. = 1 / sqrt(N - |k|) with N = 12.
  EXPECT_FLOAT_EQ(cell(f, "DU", "Correlation Best CrossCorr S.E."),
                  static_cast<float>(1 / std::sqrt(12.0 - std::abs(best_lag))));
  const std::string kendall = listing.substr(listing.find("Kendall's Tau"));
  expect_close(cell(f, "DV", "Correlation Kendall's Tau Lag 0"),
               row_numbers(kendall, "    0").at(0));
}

// 25 samples every 10 minutes (0 .. 240) with events (peaks) at `times`.
data::DataSet with_events(const std::string& name, std::initializer_list<double> times) {
  data::DataSet set = testing_support::data_set(name, name, 25);
  std::vector<data::SecretionEvent> events;
  for (const double t : times) events.push_back({t, 0.0});
  data::set_secretion_events(set, events);
  return set;
}

TEST(ConcordanceSummary, FillsDaToDfWithTheCountsAndTheChancesOfTheObservedCoincidences) {
  SessionFixture f(testing_support::only_mode(4, [](int) { return make_concordance_mode(); }));
  // A at 10, 50, 90 and B at 15, 52, 200, 10 minutes apart: 2 coincidences within
  // ±5 (by hand, as in the mode's own tests).
  const std::string listing = listing_of(
      f, with_events("a.dat", {10, 50, 90}), with_events("b.dat", {15, 52, 200}),
      {"SEED 7", "MODE Concordance", "SET #MC Cycles = 2000", "CONCORD_CALCULATE", "CONCORD_VIEW"});
  EXPECT_EQ(cell(f, "DH", "Concordance # Peaks A"), 3);
  EXPECT_EQ(cell(f, "DI", "Concordance # Peaks B"), 3);
  EXPECT_EQ(cell(f, "DJ", "Concordance # Coincidences"), 2);
  EXPECT_EQ(cell(f, "DK", "Concordance # MC Cycles"), 2000);
  expect_close(cell(f, "DL", "Concordance P(=Coincidences)"),
               value_after(listing, " P(#events=  2) = "), 3);
  expect_close(cell(f, "DM", "Concordance P(>=Coincidences)"),
               value_after(listing, " P(#events>=  2) = "), 3);
}

TEST(XApEnSummary, FillsDuToEjWithTheListedResultLinesInOrder) {
  SessionFixture f(testing_support::only_mode(14, [](int) { return make_xapen_mode(); }));
  const std::string listing = listing_of(
      f, testing_support::data_set("a.dat", "A", 5), testing_support::data_set("b.dat", "B", 5),
      {"SEED 5", "MODE X_ApEn", "SET MC Cycles = 3", "XAPEN_CALCULATE", "XApEn_VIEW"});
  EXPECT_EQ(cell(f, "EB", "XApEn # MC Cycles"), 3);
  EXPECT_FLOAT_EQ(cell(f, "EC", "XApEn R"), 0.2f);
  // Series 1 .. 5 against themselves match only in place: X-ApEn(1) = ln(4/5) and
  // X-ApEn(2) = ln(3/4) (by hand).
  EXPECT_FLOAT_EQ(cell(f, "ED", "XApEn(1)"), std::log(0.8f));
  EXPECT_FLOAT_EQ(cell(f, "EK", "XApEn(2)"), std::log(0.75f));
  // The eight result lines follow the cycles line: per m the data value, then mean and
  // SD of the noise-added, the random and the Ratio.
  const std::vector<std::string> lines = text_lines(listing);
  ASSERT_GE(lines.size(), 12u);
  const char* letters[2][7] = {{"ED", "EE", "EF", "EG", "EH", "EI", "EJ"},
                               {"EK", "EL", "EM", "EN", "EO", "EP", "EQ"}};
  for (int m = 0; m < 2; ++m) {
    const std::string n = std::to_string(m + 1);
    const char* const* at = letters[m];
    std::vector<double> listed;
    for (int k = 0; k < 4; ++k) {
      const std::string& line = lines[static_cast<std::size_t>(4 + 4 * m + k)];
      for (const std::string& part : {line.substr(line.find("= ") + 2),
                                     line.find("+/-") == std::string::npos
                                         ? std::string()
                                         : line.substr(line.find("+/-") + 3)})
        if (!part.empty()) listed.push_back(std::strtod(part.c_str(), nullptr));
    }
    ASSERT_EQ(listed.size(), 7u);
    const std::string titles[7] = {"XApEn(" + n + ")",        "+Noise XApEn(" + n + ")",
                                   "+Noise XApEn(" + n + ") SD", "Random XApEn(" + n + ")",
                                   "Random XApEn(" + n + ") SD", "Ratio XApEn(" + n + ")",
                                   "Ratio XApEn(" + n + ") SD"};
    for (int j = 0; j < 7; ++j) expect_close(cell(f, at[j], titles[j]), listed[j]);
  }
}

}  // namespace
}  // namespace tidemark::stats
