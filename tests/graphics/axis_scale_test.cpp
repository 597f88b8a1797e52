#include "graphics/axis_scale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace tidemark::graphics {
namespace {

struct AxisCase {
  const char* what;
  AxisSpec axis_spec;
  std::vector<double> data;
  double low;
  double high;
  std::vector<std::string> labels;  // labelled ticks, in order
  int minor_ticks;
};

// Each range and label list worked out by hand from the rules in axis_scale.h; the
// working is in the case's comment.
const AxisCase kCases[] = {
    // 0..100 widened by 4 on each side; 108/6 = 18 -> step 20.
    {"percent", {}, {0, 100}, -4, 104, {"0", "20", "40", "60", "80", "100"}, 0},
    // span 0.014 widened by 0.00056; 0.01512/6 = 0.00252 -> step 0.002, first 7 * 0.002.
    {"small values",
     {},
     {0.013, 0.027},
     0.01244,
     0.02756,
     {"0.014", "0.016", "0.018", "0.020", "0.022", "0.024", "0.026"},
     0},
    // one value 5: widened by 0.5; 1/6 -> step 0.2.
    {"single value", {}, {5}, 4.5, 5.5, {"4.6", "4.8", "5.0", "5.2", "5.4"}, 0},
    // 3.24e6/6 = 5.4e5 -> step 5e5; largest 3.12e6 >= 1e6: written as m×10⁶.
    {"millions",
     {},
     {0, 3e6},
     -1.2e5,
     3.12e6,
     {"0", "0.5×10⁶", "1.0×10⁶", "1.5×10⁶", "2.0×10⁶", "2.5×10⁶", "3.0×10⁶"},
     0},
    {"fixed range and step",
     {.low = 0.0, .high = 1440.0, .tick_step = 240.0},
     {5000},
     0,
     1440,
     {"0", "240", "480", "720", "960", "1200", "1440"},
     0},
    // 1000 ticks would be too many: the automatic step 0.2 instead.
    {"too fine a step",
     {.low = 0.0, .high = 1.0, .tick_step = 0.001},
     {},
     0,
     1,
     {"0", "0.2", "0.4", "0.6", "0.8", "1.0"},
     0},
    // a range beyond 1e300 cannot be drawn: the data's automatic range instead.
    {"undrawable range",
     {.low = -1e308, .high = 1e308},
     {0, 100},
     -4,
     104,
     {"0", "20", "40", "60", "80", "100"},
     0},
    // 0.3..250 rounded out to 0.1..1000: 4 decades, minors 2..9 in each.
    {"log, four decades",
     {.scale = Scale::kLog},
     {0.3, 250, -1},
     0.1,
     1000,
     {"0.1", "1", "10", "100", "1000"},
     4 * 8},
    // 2..8 rounded out to 1..10: one decade, 2 and 5 labelled.
    {"log, one decade", {.scale = Scale::kLog}, {2, 8}, 1, 10, {"1", "2", "5", "10"}, 8},
    // 17 decades: every third decade labelled (ceil(17/8) = 3), no minors.
    {"log, seventeen decades",
     {.scale = Scale::kLog},
     {1e-8, 1e8},
     1e-8,
     1e8,
     {"10⁻⁶", "0.001", "1", "1000", "10⁶"},
     0},
    {"log without positive data", {.scale = Scale::kLog}, {0, -3}, 1, 10, {"1", "2", "5", "10"}, 8},
};

TEST(AxisScale, RangesAndTickLabelsFollowTheRules) {
  for (const AxisCase& c : kCases) {
    Extent extent(c.axis_spec.scale);
    for (double v : c.data) extent.add(v);
    const AxisScale a = make_axis_scale(c.axis_spec, extent);
    EXPECT_NEAR(a.low, c.low, 1e-9 * std::abs(c.low) + 1e-12) << c.what;
    EXPECT_NEAR(a.high, c.high, 1e-9 * std::abs(c.high)) << c.what;
    std::vector<std::string> labels;
    int minors = 0;
    for (const Tick& t : a.ticks) {
      if (!t.label.empty()) labels.push_back(t.label);
      minors += !t.major;
    }
    EXPECT_EQ(labels, c.labels) << c.what;
    EXPECT_EQ(minors, c.minor_ticks) << c.what;
  }
}

struct ShortAxisCase {
  const char* what;
  AxisSpec axis_spec;
  std::vector<double> data;
  double max_labels;
  std::vector<std::string> labels;
};

// Axes with room for few labels. The working: the automatic step aims at max_labels / 1.5
// intervals (at least 1); with fewer than three labels it goes down the 1-2-5 sequence
// while it stays at least span / (1.7 * max_labels).
const ShortAxisCase kShortCases[] = {
    // -1..1 with room for 1.5: 2 / 1 -> step 2, "0" alone; finest 2 / 2.55 = 0.78, so
    // step 1 gives -1, 0, 1.
    {"correlation axis", {.low = -1.0, .high = 1.0}, {}, 1.5, {"-1", "0", "1"}},
    // room for 0.5: finest 2 / 0.85 = 2.35 > 1, so "0" stays alone (labels would overlap).
    {"too short for three", {.low = -1.0, .high = 1.0}, {}, 0.5, {"0"}},
    // 1.7..5.6 widened by 0.156: span 4.212; room for 2.8: 4.212 / 1.87 = 2.26 -> step 2
    // gives 2 and 4; finest 4.212 / 4.76 = 0.885 <= 1: step 1.
    {"concentration", {}, {1.7, 5.6}, 2.8, {"2", "3", "4", "5"}},
    // room for 2: finest 4.212 / 3.4 = 1.24 > 1: 2 and 4 stay.
    {"concentration, less room", {}, {1.7, 5.6}, 2.0, {"2", "4"}},
    // 0..100 fixed, room for 1.2: 100 / 1 -> step 100 gives 0 and 100; finest
    // 100 / 2.04 = 49 <= 50: step 50. With room for 1, finest 58.8 > 50: 0 and 100 stay.
    {"percent", {.low = 0.0, .high = 100.0}, {}, 1.2, {"0", "50", "100"}},
    {"percent, less room", {.low = 0.0, .high = 100.0}, {}, 1.0, {"0", "100"}},
    // a step given in the source is kept even when it leaves two labels.
    {"given step", {.low = 0.0, .high = 1.0, .tick_step = 1.0}, {}, 1.5, {"0", "1"}},
};

TEST(AxisScale, ShortLinearAxisShowsThreeLabelsWhenTheyFit) {
  for (const ShortAxisCase& c : kShortCases) {
    Extent extent(c.axis_spec.scale);
    for (double v : c.data) extent.add(v);
    std::vector<std::string> labels;
    for (const Tick& t : make_axis_scale(c.axis_spec, extent, c.max_labels).ticks) {
      labels.push_back(t.label);
    }
    EXPECT_EQ(labels, c.labels) << c.what;
  }
}

struct HeadroomCase {
  const char* what;
  AxisSpec axis_spec;
  std::vector<double> data;
  double headroom, low, high;
};

// The top is raised to (top - h low) / (1 - h) when the padding leaves less than the
// fraction h above the data (in log10 on a log axis); worked by hand.
const HeadroomCase kHeadroomCases[] = {
    // 0..100 padded to -4..104; (100 + 0.2 * 4) / 0.8 = 126.
    {"linear", {}, {0, 100}, 0.2, -4, 126},
    // (100 + 0.02 * 4) / 0.98 = 102.1 < 104: the padding is room enough.
    {"padding suffices", {}, {0, 100}, 0.02, -4, 104},
    // 1..50 rounded out to 1..100; log10(50) / 0.75 = 2.2653, 10^2.2653 = 184.2.
    {"log", {.scale = Scale::kLog}, {1, 50}, 0.25, 1, std::pow(50.0, 1 / 0.75)},
    {"fixed range", {.low = 0.0, .high = 100.0}, {0, 100}, 0.3, 0, 100},
};

TEST(AxisScale, HeadroomRaisesTheTopOfAnAutomaticAxisOnly) {
  for (const HeadroomCase& c : kHeadroomCases) {
    Extent extent(c.axis_spec.scale);
    for (double v : c.data) extent.add(v);
    const AxisScale a = make_axis_scale(c.axis_spec, extent, 10, c.headroom);
    EXPECT_NEAR(a.low, c.low, 1e-9) << c.what;
    EXPECT_NEAR(a.high, c.high, 1e-9 * c.high) << c.what;
  }
}

TEST(AxisScale, FractionIsLinearInTheValueOrItsLogarithm) {
  const AxisScale lin{Scale::kLinear, 10, 20, {}};
  const AxisScale log{Scale::kLog, 1, 100, {}};
  EXPECT_DOUBLE_EQ(lin.fraction(12.5), 0.25);
  EXPECT_DOUBLE_EQ(log.fraction(10), 0.5);  // log10(10) is halfway between 0 and 2
  EXPECT_DOUBLE_EQ(log.fraction(1000), 1.5);
}

TEST(AxisScale, ExtentLeavesOutWhatCannotBeDrawn) {
  Extent log(Scale::kLog);
  for (double v : {-1e35, 0.0, -5.0, 1e301, 3.0, 7.0}) log.add(v);
  EXPECT_EQ(log.low(), 3.0);
  EXPECT_EQ(log.high(), 7.0);
  Extent lin(Scale::kLinear);
  lin.add(-1e35);  // missing
  EXPECT_TRUE(lin.empty());
}

}  // namespace
}  // namespace tidemark::graphics
