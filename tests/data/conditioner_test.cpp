#include "data/conditioner.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "core/missing.h"
#include "ui/console_ui.h"

namespace tidemark::data {
namespace {

using Lines = std::vector<std::string>;
constexpr float kMissing = core::kMissingF;
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

// Point i (0-based, in the order given) at times[i], with Y = 10 + i, DY = 1 + 0.5 i
// (a coefficient of variation that varies), REPS 2 and FXk = 100 k + i.
DataSet series(const std::vector<float>& times) {
  DataSet set;
  for (std::size_t i = 0; i < times.size(); ++i) {
    const float f = float(i);
    set.push_point({times[i], 10 + f, 1 + 0.5f * f, 2, 100 + f, 200 + f, 300 + f, 400 + f});
  }
  return set;
}

struct Outcome {
  ConditionResult result;
  ui::RecordingUi ui;
  ui::MemoryLog log;
};

Outcome condition_set(DataSet& set, bool quiet = true) {
  Outcome run;
  run.result = condition(set, quiet, run.ui, run.log);
  return run;
}

// The single serious-error box of a failed run, checked for its title.
Lines error_box(const Outcome& run) {
  EXPECT_FALSE(run.result.ok());
  if (run.ui.boxes().size() != 1) return {};
  EXPECT_EQ(run.ui.boxes()[0].title, "Serious error in data set");
  return run.ui.boxes()[0].lines;
}

TEST(Conditioner, UncertaintyMustExceedOneHundredThousandthOfTheConcentration) {
  // The odd point is point 3 of six regular ones. Expected outcomes by hand from the
  // rule DY > 1.0E-5 * Y in single precision; "exact" rows were checked with python3
  // (struct 'f' rounding): float(0.01) == float(1.0E-5 * 1000) == 0.009999999776...,
  // and likewise for Y = 1, 7.5 and 100000.
  struct Case {
    float y, dy;
    bool ok;
  };
  const Case cases[] = {
      {1000, 0.01f, false},                       // exactly 1.0E-5 * Y
      {1000, std::nextafter(0.01f, 1.0f), true},  // one float above it
      {1, 1.0E-5f, false},                        // exactly 1.0E-5 * Y
      {7.5f, 7.5E-5f, false},                     // exactly 1.0E-5 * Y
      {100000, 1, false},                         // exactly 1.0E-5 * Y
      {0, 0, false},                              // 0 does not exceed 0
      {-1, 0, true},                              // 0 exceeds -1.0E-5
      {kMissing, 0, true},                        // no concentration: not checked
      {5, kMissing, false},                       // a concentration without uncertainty
      {kNaN, 1, false},                           // not a number fails the comparison
      {5, kNaN, false},
  };
  for (const Case& c : cases) {
    DataSet set = series({0, 10, 20, 30, 40, 50});
    set.y()[2] = c.y;
    set.dy()[2] = c.dy;
    const Outcome run = condition_set(set);
    EXPECT_EQ(run.result.ok(), c.ok) << c.y << " " << c.dy;
    if (c.ok) continue;
    EXPECT_EQ(error_box(run), (Lines{"Data point 3 has too small of an uncertainty.",
                                     "The second column of the data file cannot be this small!"}));
    EXPECT_EQ(run.log.lines(),
              (Lines{"DATA_CONDITIONER: Serious error in data set: Data point 3 has too small "
                     "of an uncertainty.",
                     "DATA_CONDITIONER: Serious error in data set: The second column of the "
                     "data file cannot be this small!"}));
  }
}

TEST(Conditioner, SortingMovesEveryColumnWithItsTimeAndIsLogged) {
  DataSet set = series({30, 0, 20, 10});
  EXPECT_EQ(condition_set(set).log.lines(), Lines{"DATA_CONDITIONER: data set sorted"});
  // Point i of the input had time t = {30, 0, 20, 10}[i] and values 10 + i, 1 + 0.5 i, ...
  // so after sorting the input indices are 1, 3, 2, 0.
  EXPECT_EQ(set.x(), (std::vector<float>{0, 10, 20, 30}));
  EXPECT_EQ(set.y(), (std::vector<float>{11, 13, 12, 10}));
  EXPECT_EQ(set.dy(), (std::vector<float>{1.5f, 2.5f, 2, 1}));
  EXPECT_EQ(set.columns[kFx4], (std::vector<float>{401, 403, 402, 400}));
}

TEST(Conditioner, DuplicatedTimeIsRefusedAfterAStableSort) {
  DataSet set = series({10, 0, 10, 20});
  const Outcome run = condition_set(set);
  // Equal times keep their input order: input points 1, 0, 2, 3 (Y 11, 10, 12, 13).
  EXPECT_EQ(set.y(), (std::vector<float>{11, 10, 12, 13}));
  // gfortran 1PG15.5 of 0.0 is "     0.0000    ".
  EXPECT_EQ(error_box(run), Lines{"Minimal Time Increment is Too Small: 0.0000"});
  EXPECT_EQ(run.log.lines(), (Lines{"DATA_CONDITIONER: data set sorted",
                                    "DATA_CONDITIONER: Serious error in data set: Minimal Time "
                                    "Increment is Too Small: 0.0000"}));
}

TEST(Conditioner, GapRatiosAreClassifiedWithStrictBounds) {
  // The last gap over a median increment of 100 (the three increments of 100 before it
  // fix the median), or as noted. Sizes by hand: one point for 1.96 < g < 2.04, two for
  // 2.94 < g < 3.06. Every quotient of whole numbers here rounds to the double nearest
  // the decimal ratio, which is the bound's own literal, so 102 / 100 == 1.02 exactly.
  // Numbers as gfortran writes them with 1PG15.5.
  struct Case {
    std::vector<float> times;
    int size;           // after conditioning
    const char* error;  // nullptr when accepted
  };
  const Case cases[] = {
      {{0, 100, 200, 300, 401}, 5, nullptr},
      {{0, 100, 200, 300, 402}, 5, "Irregular data spacing: 402.00"},
      {{0, 100, 200, 300, 496}, 5, "Irregular data spacing: 496.00"},
      {{0, 100, 200, 300, 497}, 6, nullptr},
      {{0, 100, 200, 300, 503}, 6, nullptr},
      {{0, 100, 200, 300, 504}, 5, "Irregular data spacing: 504.00"},
      {{0, 100, 200, 300, 594}, 5, "Irregular data spacing: 594.00"},
      {{0, 100, 200, 300, 595}, 7, nullptr},
      {{0, 100, 200, 300, 605}, 7, nullptr},
      {{0, 100, 200, 300, 606}, 5, "Irregular data spacing: 606.00"},
      {{0, 10, 20, 30, 45}, 5, "Irregular data spacing: 45.000"},  // g = 15 / 10
      // Increments 100, 102, 102: median / minimum is exactly 1.02, which is not above.
      {{0, 100, 202, 304}, 4, nullptr},
      // Increments 10, 15: median 0.5 * (10 + 15) = 12.5, minimum 10.
      {{0, 10, 25}, 3, "Median/Minimum time increment is too big: 1.2500"},
      // Increments 0.5 and 1E6: the minimum is below the tolerance 1.0E-5 * 1E6 = 10.
      {{0, 0.5f, 1000000.5f}, 3, "Minimal Time Increment is Too Small: 0.50000"},
  };
  for (const Case& c : cases) {
    DataSet set = series(c.times);
    const Outcome run = condition_set(set);
    EXPECT_EQ(set.size(), c.size) << c.times.back();
    if (c.error) {
      EXPECT_EQ(error_box(run), Lines{c.error}) << c.times.back();
    } else {
      EXPECT_TRUE(run.result.ok()) << c.times.back() << run.result.message;
    }
  }
}

TEST(Conditioner, IrregularSpacingIsLoggedInShortFormAfterEarlierRepairs) {
  DataSet set = series({0, 10, 30, 40, 50, 65});
  const Outcome run = condition_set(set);
  EXPECT_EQ(run.result.message, "Irregular data spacing: 65.000");
  EXPECT_EQ(set.size(), 7);  // the point inserted before the error stays
  EXPECT_EQ(run.log.lines(),
            (Lines{"DATA_CONDITIONER: added a point after time = 10.000",
                   "DATA_CONDITIONER: Serious error in data set: Irregular data spacing"}));
}

TEST(Conditioner, GapsOfTwoAndThreeIncrementsGainBlendedPointsWithoutReplicates) {
  // The gap's neighbours: time 10 (Y 11, DY 1.5) and the next point (Y 12, DY 2).
  // One point: time (10 + 30) * 0.5 = 20, Y (11 + 12) * 0.5 = 11.5, DY 1.5 + 2 = 3.5.
  // Two points: times (2*10 + 40)/3 = 20 and (2*40 + 10)/3 = 30; Y 34/3 and 35/3, whose
  // nearest floats are 11.333333015 and 11.666666985 (python3 struct 'f');
  // DY 2*1.5 + 2 = 5 and 1.5 + 2*2 = 5.5. Inserted points have REPS 0 and no FX values.
  struct Case {
    std::vector<float> times, x, y, dy, reps;
    const char* log;
  };
  const Case cases[] = {
      {{0, 10, 30, 40},
       {0, 10, 20, 30, 40},
       {10, 11, 11.5f, 12, 13},
       {1, 1.5f, 3.5f, 2, 2.5f},
       {2, 2, 0, 2, 2},
       "DATA_CONDITIONER: added a point after time = 10.000"},
      {{0, 10, 40, 50},
       {0, 10, 20, 30, 40, 50},
       {10, 11, 11.333333015441895f, 11.666666984558105f, 12, 13},
       {1, 1.5f, 5, 5.5f, 2, 2.5f},
       {2, 2, 0, 0, 2, 2},
       "DATA_CONDITIONER: added two points after time = 10.000"},
  };
  for (const Case& c : cases) {
    DataSet set = series(c.times);
    const Outcome run = condition_set(set);
    EXPECT_TRUE(run.result.ok()) << run.result.message;
    EXPECT_EQ(run.log.lines(), Lines{c.log});
    EXPECT_EQ(set.x(), c.x);
    EXPECT_EQ(set.y(), c.y);
    EXPECT_EQ(set.dy(), c.dy);
    EXPECT_EQ(set.reps(), c.reps);
    for (int fx = kFx1; fx <= kFx4; ++fx) EXPECT_EQ(set.columns[fx][2], kMissing);
  }
}

TEST(Conditioner, PointInsertedNextToAMissingConcentrationHasNoConcentration) {
  DataSet set = series({0, 10, 30, 40, 50});
  set.y()[1] = kMissing;
  set.dy()[1] = kMissing;
  const Outcome run = condition_set(set);
  ASSERT_TRUE(run.result.ok()) << run.result.message;  // valid: times 0, 30, 40, 50
  EXPECT_EQ(set.y()[2], kMissing);
  EXPECT_EQ(set.dy()[2], kMissing);
}

TEST(Conditioner, OnlyTheCropRangeIsExaminedAndItsSetEndMovesWithInsertedPoints) {
  struct Case {
    std::vector<float> times;
    int crop_start, crop_end;
    bool ok;
    int size, new_crop_end;
  };
  const int unset = core::kMissingInt;
  const Case cases[] = {
      {{0, 10, 20, 30, 40, 55}, unset, 5, true, 6, 5},      // irregular 55 outside the range
      {{-7, 0, 10, 20, 30, 40}, 2, unset, true, 6, unset},  // irregular -7 outside
      {{0, 10, 30, 40, 50, 65}, 1, 5, true, 7, 6},          // 20 inserted, end moves
      {{0, 10, 30, 40, 50}, unset, unset, true, 6, unset},  // an unset end stays unset
      {{0, 10, 20, 30, 40, 50}, 1, 3, false, 6, 3},         // three valid points in range
  };
  for (const Case& c : cases) {
    DataSet set = series(c.times);
    set.crop_start = c.crop_start;
    set.crop_end = c.crop_end;
    const Outcome run = condition_set(set);
    EXPECT_EQ(run.result.ok(), c.ok) << c.times.back() << run.result.message;
    EXPECT_EQ(set.size(), c.size) << c.times.back();
    EXPECT_EQ(set.crop_end, c.new_crop_end) << c.times.back();
  }
}

TEST(Conditioner, TimeThatIsNotANumberIsRefusedInsideTheCropRangeOnly) {
  // Missing and NaN times sort lowest, to point 1; infinity sorts last.
  constexpr float kInf = std::numeric_limits<float>::infinity();
  const int unset = core::kMissingInt;
  struct Case {
    std::vector<float> times;
    int crop_start, crop_end;
    const char* error;  // nullptr when accepted
  };
  const Case cases[] = {
      {{0, 10, 20, 30, kMissing}, unset, unset, "Data point 1 has a missing or infinite time."},
      {{0, 10, 20, 30, kNaN}, unset, unset, "Data point 1 has a missing or infinite time."},
      {{0, 10, 20, 30, kInf}, unset, unset, "Data point 5 has a missing or infinite time."},
      {{kMissing, 0, 10, 20, 30}, 2, unset, nullptr},
      {{kNaN, 0, 10, 20, 30}, 2, unset, nullptr},
      {{0, 10, 20, 30, kInf}, unset, 4, nullptr},
  };
  for (const Case& c : cases) {
    DataSet set = series(c.times);
    set.crop_start = c.crop_start;
    set.crop_end = c.crop_end;
    const Outcome run = condition_set(set);
    if (c.error) {
      EXPECT_EQ(error_box(run), Lines{c.error});
    } else {
      EXPECT_TRUE(run.result.ok()) << run.result.message;
    }
  }
}

TEST(Conditioner, MoreThanThreeValidPointsAreNeeded) {
  // Five points at 0..40 with edits; a point is valid when REPS is not 0 and Y > 0.
  struct Edit {
    int point;
    Column column;
    float value;
  };
  struct Case {
    std::vector<Edit> edits;
    bool ok;
  };
  const Case cases[] = {
      {{}, true},                                            // five valid
      {{{4, kReps, 0}}, true},                               // four valid
      {{{0, kReps, 0}, {4, kReps, 0}}, false},               // three valid
      {{{1, kY, 0}, {2, kY, kMissing}}, false},              // Y 0 and missing
      {{{1, kY, -1}}, true},                                 // four valid
      {{{0, kReps, kMissing}, {1, kReps, kMissing}}, true},  // unknown count is not 0
  };
  for (const Case& c : cases) {
    DataSet set = series({0, 10, 20, 30, 40});
    for (const Edit& e : c.edits) set.columns[e.column][e.point] = e.value;
    const Outcome run = condition_set(set);
    EXPECT_EQ(run.result.ok(), c.ok) << c.edits.size() << run.result.message;
    if (c.ok) continue;
    EXPECT_EQ(error_box(run), Lines{"Not Enough Valid Data Points!"});
    EXPECT_EQ(run.log.lines(),
              Lines{"DATA_CONDITIONER: Serious error in data set: Not Enough Valid Data Points!"});
  }
}

TEST(Conditioner, SeriesTooShortToHaveIncrementsHasTooFewValidPoints) {
  for (const std::vector<float>& times : {std::vector<float>{}, std::vector<float>{5}}) {
    DataSet set = series(times);
    EXPECT_EQ(condition_set(set).result.message, "Not Enough Valid Data Points!");
  }
}

TEST(Conditioner, ConstantCoefficientOfVariationIsWarnedAboutUnlessQuiet) {
  const Lines warning = {
      "You have entered a data set with a variance model",
      "which consists of a constant Coefficient of Variation.",
      "This variance model implies that the measurement errors",
      "of the concentrations approach zero when the",
      "concentration approaches zero.  I.e. it simply means that",
      "the Minimal Detectable Concentration is zero.  Since this",
      "is clearly wrong it is expected that this software will",
      "not provide optimal results with this variance model!",
  };
  struct Case {
    bool constant_cv, quiet, warned;
  };
  const Case cases[] = {{true, false, true}, {true, true, false}, {false, false, false}};
  for (const Case& c : cases) {
    DataSet set = series({0, 10, 20, 30, 40});
    // DY = 0.1 Y: the ratios differ only by float rounding (relative 1E-7), far below
    // the 1/1000 that separates a constant ratio from a varying one.
    if (c.constant_cv) {
      for (int i = 0; i < set.size(); ++i) set.dy()[i] = 0.1f * set.y()[i];
    }
    const Outcome run = condition_set(set, c.quiet);
    EXPECT_TRUE(run.result.ok());
    if (!c.warned) {
      EXPECT_TRUE(run.ui.boxes().empty());
      EXPECT_TRUE(run.log.lines().empty());
      continue;
    }
    ASSERT_EQ(run.ui.boxes().size(), 1u);
    EXPECT_EQ(run.ui.boxes()[0].title, "Bad Variance Model");
    EXPECT_EQ(run.ui.boxes()[0].lines, warning);
    ASSERT_EQ(run.log.lines().size(), warning.size());
    EXPECT_EQ(run.log.lines()[4],
              "DATA_CONDITIONER: Bad Variance Model: concentration approaches zero.  I.e. it "
              "simply means that");
  }
}

TEST(Conditioner, BlankHeadersAndIntegerSlotsBelowMinusThousandGetDefaults) {
  // Headers of X, Y, DY, REPS default to TIME, CONC, SEM, REPS; FX headers stay blank.
  // Integer slots 1..4 default to 0, 4, 0, 5; -1000 is not below; slot 5 is left alone.
  struct Case {
    std::array<int, 5> before, after;
  };
  const int missing = core::kMissingInt;
  const Case cases[] = {
      {{-1001, -1000, missing, 7, -5000}, {0, -1000, 0, 7, -5000}},
      {{7, -20000, 3, -1001, missing}, {7, 4, 3, 5, missing}},
  };
  for (const Case& c : cases) {
    DataSet set = series({0, 10, 20, 30});
    set.headers = {"", "LH", "   ", "", "", "", "", ""};
    std::copy(c.before.begin(), c.before.end(), set.integers.begin());
    ASSERT_TRUE(condition_set(set).result.ok());
    EXPECT_EQ(set.headers, (std::array<std::string, kColumnCount>{"TIME", "LH", "SEM", "REPS"}));
    EXPECT_TRUE(std::equal(c.after.begin(), c.after.end(), set.integers.begin()))
        << set.integers[0] << " " << set.integers[1] << " " << set.integers[2] << " "
        << set.integers[3];
  }
}

}  // namespace
}  // namespace tidemark::data
