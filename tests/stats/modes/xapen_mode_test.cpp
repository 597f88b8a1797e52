#include "stats/modes/xapen_mode.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/missing.h"
#include "graphics/plot_parser.h"
#include "shell/session_fixture.h"
#include "stats/modes/xapen_graph.h"
#include "stats/modes/xapen_report.h"

namespace tidemark::stats {
namespace {

using testing_support::data_set;
using testing_support::Scratch;
using testing_support::SessionFixture;
using Lines = std::vector<std::string>;

shell::ModuleFactories xapen_modes() {
  return testing_support::only_mode(14, [](int) { return make_xapen_mode(); });
}

TEST(XApEnRatio, IsXApEnOverTheRandomMeanWithPropagatedSdAndMissingWhenThatMeanIsZero) {
  // Hand derivation: 1 / 2 = 0.5; SD = sqrt((0.1/2)^2 + (0.5 × 0.2/2)^2) = sqrt(0.005).
  const Ratio r = xapen_ratio(1.0, {3.0, 0.1}, {2.0, 0.2});
  EXPECT_DOUBLE_EQ(r.value, 0.5);
  EXPECT_NEAR(r.sd, std::sqrt(0.005), 1e-15);
  const Ratio none = xapen_ratio(1.0, {3.0, 0.1}, {0.0, 0.2});
  EXPECT_EQ(none.value, core::kMissing);
  EXPECT_EQ(none.sd, core::kMissing);
}

class XApEnMode : public testing::Test {
 protected:
  XApEnMode() : f(xapen_modes()) {
    f.session->store().append(data_set("a.dat", "A", 5));
    f.session->store().append(data_set("b.dat", "B", 5));
  }
  Lines listing() {
    f.run({"SEED 5", "MODE X_ApEn", "SET MC Cycles = 3", "XAPEN_CALCULATE", "XApEn_VIEW"});
    EXPECT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
    return f.ui.first_text_lines();
  }
  SessionFixture f;
};

// Two series 1, 2, 3, 4, 5 (the same after standardising, spacing 1/SD = 0.63 > R = 0.2)
// match only at the same place: X-ApEn(1) = ln(4/5), X-ApEn(2) = ln(3/4), written by
// gfortran with (1PG15.5) as -0.22314 and -0.28768; hits only at lag 0, 5 for m = 1 and
// 4 for m = 2.
TEST_F(XApEnMode, ListingHoldsTheDataValuesTheLabelsInOrderAndTheHitTable) {
  const Lines lines = listing();
  ASSERT_EQ(lines.size(), 4u + 8u + 3u + 9u);
  EXPECT_EQ(lines[0], " XApEn Calculation");
  EXPECT_EQ(lines[1], " a.dat  vs. b.dat");
  EXPECT_EQ(lines[2], " R =     0.20000     * SD");
  EXPECT_EQ(lines[3], " with 3 Monte-Carlo cycles");
  EXPECT_EQ(lines[4], " XApEn(1,0.20,5) =    -0.22314    ");
  EXPECT_EQ(lines[8], " XApEn(2,0.20,5) =    -0.28768    ");
  const Lines labels = {" +Noise XApEn(1,", " Random XApEn(1,", " Ratio XApEn(1,",
                        " +Noise XApEn(2,", " Random XApEn(1,", " Ratio XApEn(2,"};
  const int rows[] = {5, 6, 7, 9, 10, 11};
  for (int k = 0; k < 6; ++k) {
    EXPECT_EQ(lines[rows[k]].rfind(labels[k], 0), 0u) << lines[rows[k]];
    EXPECT_NE(lines[rows[k]].find("+/-"), std::string::npos) << lines[rows[k]];
  }
  EXPECT_EQ(lines[13], " Summary of \"Hits\"");
  EXPECT_EQ(lines[14], "     Lag       m=0       m=1");
  EXPECT_EQ(lines[15], "      -4         0         0");
  EXPECT_EQ(lines[19], "       0         5         4");
}

// The dialog's eight result fields hold the listing's result lines, the m = 2 random
// line with its m = 1 label; the progress of the cycles reaches the ui up to the whole.
TEST_F(XApEnMode, ResultFieldsHoldTheListingsResultLines) {
  const Lines lines = listing();
  ASSERT_GE(lines.size(), 12u);
  ASSERT_EQ(f.ui.dialog_values.size(), 12u);
  for (std::size_t k = 0; k < 8; ++k) {
    EXPECT_EQ(std::get<std::string>(f.ui.dialog_values[4 + k]), lines[4 + k]) << k;
  }
  EXPECT_EQ(f.ui.progress_titles, (Lines{"X_ApEn Monte-Carlo cycles"}));
  ASSERT_FALSE(f.ui.progress_fractions.empty());
  EXPECT_EQ(f.ui.progress_fractions.back(), 1.0);
}

TEST_F(XApEnMode, TheGraphSourceParsesAndIsTitledTimeBetweenMatches) {
  listing();
  const std::string source = Scratch::read(f.session->files().graph_path());
  const graphics::PlotParseResult plot = graphics::parse_plot(source);
  EXPECT_TRUE(plot.ok()) << plot.message;
  EXPECT_NE(source.find("PAGE \"TIME BETWEEN MATCHES\""), std::string::npos);
  // The page title is not said again over the first panel; the series panels' y axes
  // carry the data's own header.
  ASSERT_EQ(plot.plot.panels.size(), 3u);
  EXPECT_EQ(plot.plot.panels[0].title, "");
  for (std::size_t i = 1; i < 3; ++i) {
    EXPECT_EQ(plot.plot.panels[i].y_axis.label,
              f.session->store().at(static_cast<int>(i) - 1).concentration_header());
    EXPECT_NE(plot.plot.panels[i].y_axis.label, "Concentration");
  }
  ASSERT_FALSE(plot.options.empty());
  EXPECT_EQ(plot.options[0].label, kShowSecondLength);
}

TEST(XApEnReplay, TheHistoryReproducesTheListingByteForByte) {
  Scratch out;
  const auto run = [&](SessionFixture& f, const Lines& commands) {
    f.session->store().append(data_set("a.dat", "A", 8));
    f.session->store().append(data_set("b.dat", "B", 8));
    f.run(commands);
  };
  SessionFixture first(xapen_modes());
  run(first, {"SEED 17", "MODE X_ApEn", "SET MC Cycles = 40", "SET R = 0.5", "XAPEN_CALCULATE",
              "COPY_LST \"" + (out / "first.lst").string() + "\""});
  const std::string listing = Scratch::read(out / "first.lst");
  std::filesystem::remove(out / "first.lst");
  SessionFixture second(xapen_modes());
  run(second, {"@ \"" + first.session->files().history_path().string() + "\""});
  EXPECT_FALSE(second.session->failed()) << testing::PrintToString(second.ui.shown());
  EXPECT_EQ(Scratch::read(out / "first.lst"), listing);
}

// Six points at 0, 10, ..., 50 with values 1 .. 6 (SEM 0.1, 2 replicates), as `b` edits
// them.
data::DataSet six_points(const std::string& name) {
  return data_set(name, name, 6);
}

struct PairCase {
  const char* what;
  void (*edit)(data::DataSet& b);
};

class XApEnPairs : public testing::TestWithParam<PairCase> {};

// B lost its sample at time 20, or holds two rows out of time order: the conditioner
// inserts the lost point (value (2 + 4) / 2 = 3, as it was) or sorts, and B is A again.
// Identical series 1 .. 6, standardised, match only at the same place (spacing 1/SD >
// R = 0.2): X-ApEn(1) = ln(5/6) = -0.18232, X-ApEn(2) = ln(4/5) = -0.22314 by hand,
// written as gfortran's (1PG15.5).
TEST_P(XApEnPairs, BothSeriesPassTheConditionerBeforeTheyArePaired) {
  SessionFixture f(xapen_modes());
  data::DataSet b = six_points("b.dat");
  GetParam().edit(b);
  f.session->store().append(six_points("a.dat"));
  f.session->store().append(b);
  f.run({"SEED 5", "MODE X_ApEn", "SET MC Cycles = 3", "XAPEN_CALCULATE", "XApEn_VIEW"});
  ASSERT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
  const Lines lines = f.ui.first_text_lines();
  ASSERT_GE(lines.size(), 9u);
  EXPECT_EQ(lines[4], " XApEn(1,0.20,6) =    -0.18232    ");
  EXPECT_EQ(lines[8], " XApEn(2,0.20,6) =    -0.22314    ");
}

INSTANTIATE_TEST_SUITE_P(
    XApEnMode, XApEnPairs,
    testing::Values(PairCase{"a lost sample",
                             [](data::DataSet& b) {
                               for (auto& column : b.columns) column.erase(column.begin() + 2);
                             }},
                    PairCase{"rows out of order", [](data::DataSet& b) {
                               for (auto& column : b.columns) std::swap(column[1], column[2]);
                             }}));

TEST(XApEnRefusals, AZeroSemFailsTheConditionerAndANegativeRIsRefused) {
  const struct {
    const char* set_r;
    float sem;
    const char* expected;
  } kCases[] = {
      {"SET R = 0.2", 0.0f, "Error Reported by X_ApEn: Data set 1 (a.dat) did not pass the data conditioner."},
      {"SET R = -0.1", 0.1f, "Error Reported by X_ApEn: R must be a number not below zero."},
  };
  for (const auto& c : kCases) {
    SessionFixture f(xapen_modes());
    data::DataSet a = six_points("a.dat");
    for (int i = 0; i < a.size(); ++i) a.dy()[i] = c.sem;
    f.session->store().append(a);
    f.session->store().append(six_points("b.dat"));
    f.run({"MODE X_ApEn", "SET MC Cycles = 3", c.set_r, "XAPEN_CALCULATE"});
    const Lines shown = f.ui.shown();
    EXPECT_NE(std::find(shown.begin(), shown.end(), c.expected), shown.end())
        << c.set_r << "\n" << testing::PrintToString(shown);
  }
}

}  // namespace
}  // namespace tidemark::stats
