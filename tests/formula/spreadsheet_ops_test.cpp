// The spreadsheet's reshaping operations: Average, Select, Crop, Shuffle, Corrupt.
#include "formula/spreadsheet_ops.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "core/missing.h"
#include "formula/spreadsheet_test_data.h"

namespace tidemark::formula {
namespace {

using testing::series;
using Column = std::vector<float>;
// Sums of a few single-precision values, compared with their decimal derivation.
constexpr float kTolerance = 1e-6f;

void expect_near(const Column& got, const Column& want, const char* what) {
  ASSERT_EQ(got.size(), want.size()) << what;
  for (std::size_t i = 0; i < got.size(); ++i) EXPECT_NEAR(got[i], want[i], kTolerance) << what;
}

TEST(SpreadsheetAverage, BinsOfTwoWithAShortLastBin) {
  Grid grid(series(5));
  grid.set().columns[data::kFx1][1] = core::kMissingF;
  grid.set().crop_end = 4;
  ASSERT_TRUE(average_rows(grid, 2).ok());
  // By hand from TIME 0..40, Y 1..5, SEM 0.1, REPS 2, FX1 0.1..0.5 (row 2 missing):
  // bins {1,2}, {3,4}, {5}; SEM of two: sqrt(0.01 + 0.01)/2 = 0.0707107.
  const auto& c = grid.set().columns;
  expect_near(c[data::kX], {5, 25, 40}, "TIME");
  expect_near(c[data::kY], {1.5f, 3.5f, 5}, "Y");
  expect_near(c[data::kDY], {0.0707107f, 0.0707107f, 0.1f}, "SEM");
  expect_near(c[data::kReps], {4, 4, 2}, "REPS");
  expect_near(c[data::kFx1], {0.1f, 0.35f, 0.5f}, "FX1");
  EXPECT_TRUE(std::all_of(c[data::kFx2].begin(), c[data::kFx2].end(),
                          [](float v) { return core::is_missing(v); }));
  EXPECT_TRUE(core::is_missing_int(grid.set().crop_end));
}

// A row whose concentration is missing lends the bin neither its time nor its SEM nor
// its replicates: the bin of a sample at time 0 and a missing one at time 10 is the
// sample itself, not time 5 with an SEM divided by sqrt(2) and twice the REPS.
TEST(SpreadsheetAverage, RowsWithoutAConcentrationCountOnlyForTheirOwnFurtherColumns) {
  Grid grid(series(6));
  for (const std::size_t row : {1u, 4u, 5u}) grid.set().columns[data::kY][row] = core::kMissingF;
  ASSERT_TRUE(average_rows(grid, 2).ok());
  // By hand: bin {1,2} is row 1 alone; bin {3,4} both rows (SEM sqrt(0.02)/2 =
  // 0.0707107); bin {5,6} has no concentration: its mean time 45, the rest missing but
  // FX1, which has its own values 0.5 and 0.6.
  const auto& c = grid.set().columns;
  const float missing = core::kMissingF;
  expect_near(c[data::kX], {0, 25, 45}, "TIME");
  expect_near(c[data::kY], {1, 3.5f, missing}, "Y");
  expect_near(c[data::kDY], {0.1f, 0.0707107f, missing}, "SEM");
  expect_near(c[data::kReps], {2, 4, missing}, "REPS");
  expect_near(c[data::kFx1], {0.15f, 0.35f, 0.55f}, "FX1");
}

TEST(SpreadsheetAverage, BinOfOneChangesNothing) {
  Grid grid(series(4));
  const data::DataSet before = grid.set();
  ASSERT_TRUE(average_rows(grid, 1).ok());
  EXPECT_EQ(grid.set(), before);
}

TEST(SpreadsheetSelect, KeepsOneRowEveryStepFromTheStart) {
  struct Case {
    int every, start;
    Column y;
  };
  // Rows of a 7-row series (Y = row number), listed by hand.
  const Case cases[] = {
      {2, 1, {1, 3, 5, 7}}, {2, 2, {2, 4, 6}}, {3, 1, {1, 4, 7}}, {1, 6, {6, 7}}, {5, 2, {2, 7}}};
  for (const Case& c : cases) {
    Grid grid(series(7));
    ASSERT_TRUE(select_rows(grid, c.every, c.start).ok()) << c.every << " " << c.start;
    EXPECT_EQ(grid.set().y(), c.y) << c.every << " " << c.start;
    EXPECT_EQ(grid.set().x().size(), c.y.size());
  }
}

TEST(SpreadsheetCrop, KeepsTheCropRangeAndClearsIt) {
  Grid grid(series(6));
  grid.set().crop_start = 2;
  grid.set().crop_end = 4;
  ASSERT_TRUE(crop_rows(grid).ok());
  EXPECT_EQ(grid.set().y(), (Column{2, 3, 4}));
  EXPECT_EQ(grid.set().x(), (Column{10, 20, 30}));
  EXPECT_TRUE(core::is_missing_int(grid.set().crop_start));
  Grid whole(series(3));
  ASSERT_TRUE(crop_rows(whole).ok());
  EXPECT_EQ(whole.set().y(), (Column{1, 2, 3}));
}

TEST(SpreadsheetReshape, RefusalsChangeNothing) {
  // Each leaves fewer than 2 rows or has a setting out of range on a 5-row series.
  struct Case {
    const char* what;
    SheetResult (*run)(Grid&);
  };
  const Case cases[] = {{"bin 0", [](Grid& g) { return average_rows(g, 0); }},
                        {"bin 5", [](Grid& g) { return average_rows(g, 5); }},
                        {"every 0", [](Grid& g) { return select_rows(g, 0, 1); }},
                        {"start 0", [](Grid& g) { return select_rows(g, 1, 0); }},
                        {"start 6", [](Grid& g) { return select_rows(g, 1, 6); }},
                        {"start 5", [](Grid& g) { return select_rows(g, 1, 5); }},
                        {"every 4 from 2", [](Grid& g) { return select_rows(g, 4, 2); }},
                        {"crop 3..3",
                         [](Grid& g) {
                           g.set().crop_start = g.set().crop_end = 3;
                           return crop_rows(g);
                         }},
                        {"corrupt -1", [](Grid& g) {
                           core::Random random(1);
                           return corrupt_values(g, -1, random);
                         }}};
  for (const Case& c : cases) {
    Grid grid(series(5));
    const Column y = grid.set().y();
    const SheetResult status = c.run(grid);
    EXPECT_FALSE(status.ok()) << c.what;
    EXPECT_EQ(status.title, "Data Spread Sheet") << c.what;
    EXPECT_EQ(grid.set().y(), y) << c.what;
  }
}

TEST(SpreadsheetShuffle, PermutesRowsOverFixedTimesAndDependsOnlyOnTheSeed) {
  Grid a(series(20));
  Grid b(series(20));
  for (int r = 0; r < 20; ++r) a.set().dy()[r] = b.set().dy()[r] = 0.5f * float(r + 1);
  core::Random ra(42);
  core::Random rb(42);
  ASSERT_TRUE(shuffle_rows(a, ra).ok());
  ASSERT_TRUE(shuffle_rows(b, rb).ok());
  EXPECT_EQ(a.set(), b.set());
  EXPECT_EQ(a.set().x(), series(20).x());
  Column y = a.set().y();
  EXPECT_NE(y, series(20).y());  // the identity has probability 1/20!
  for (int r = 0; r < 20; ++r) {
    EXPECT_EQ(a.set().dy()[r], 0.5f * y[r]) << "SEM left its row " << r;
    EXPECT_EQ(a.set().columns[data::kFx1][r], y[r] / 10) << "FX1 left its row " << r;
  }
  std::sort(y.begin(), y.end());
  EXPECT_EQ(y, series(20).y());
}

TEST(SpreadsheetCorrupt, AddsGaussianNoiseOfThePercentToEachValueInTurn) {
  Grid grid(series(4));
  grid.set().y()[1] = core::kMissingF;
  core::Random random(7);
  ASSERT_TRUE(corrupt_values(grid, 10, random).ok());
  // The same deviates drawn in order from a second generator of the same seed; the
  // missing value takes none and stays missing.
  core::Random again(7);
  const Column original = {1, core::kMissingF, 3, 4};
  for (int r = 0; r < 4; ++r) {
    if (r == 1) {
      EXPECT_TRUE(core::is_missing(grid.set().y()[r]));
      continue;
    }
    const double g = again.gaussian12();
    EXPECT_EQ(grid.set().y()[r], static_cast<float>(original[r] * (1 + 0.1 * g))) << r;
  }
  Grid unchanged(series(4));
  ASSERT_TRUE(corrupt_values(unchanged, 0, random).ok());
  EXPECT_EQ(unchanged.set().y(), series(4).y());
}

}  // namespace
}  // namespace tidemark::formula
