// The spreadsheet's grid: labels, cell kinds, the printed grid and the copy back.
#include "formula/spreadsheet_grid.h"

#include <gtest/gtest.h>

#include "core/missing.h"
#include "formula/spreadsheet_test_data.h"

namespace tidemark::formula {
namespace {

using testing::series;

TEST(SpreadsheetGrid, LabelsAreTheHeadersCutToTenOrTheDefaults) {
  data::DataSet set = series(2);
  set.headers[data::kDY] = "  Standard error  ";
  Grid grid(set);
  EXPECT_EQ(grid.labels(), (std::vector<std::string>{"N", "TIME", "Y", "Standard e", "REPS", "FX1",
                                                     "FX2", "FX3", "FX4"}));
  EXPECT_EQ(grid.value(2, 1), 2.0);
  EXPECT_EQ(grid.value(2, 2), 10.0);
}

TEST(SpreadsheetGrid, PrintsRowsWithIntegerRealAndMissingCells) {
  data::DataSet set = series(2);
  set.columns[data::kY][1] = 1.0f / 3;
  Grid grid(set);
  // The cells of each row as gfortran writes them with
  // (I6,1PG15.5,1PG15.5,1PG15.5,I15,1PG15.5); missing cells are "NaN" right-aligned in 15.
  const std::string nan3 = "            NaN            NaN            NaN\n";
  const std::string expected =
      "Data Spread Sheet: series.dat, 2 rows\n"
      "     N           TIME              Y            SEM           REPS            FX1"
      "            FX2            FX3            FX4\n"
      "     1     0.0000         1.0000        0.10000                  2    0.10000    " +
      nan3 + "     2     10.000        0.33333        0.10000                  2    0.20000    " +
      nan3;
  EXPECT_EQ(grid_text(grid), expected);
}

TEST(SpreadsheetGrid, WriteBackTakesPointsAndCropButKeepsHeadersAndResultsAndMarksTheSet) {
  data::DataSet target = series(3);
  target.answers[0] = 12.5;
  Grid grid(target);
  grid.set().y()[0] = 9;
  grid.set().crop_start = 2;
  grid.set().headers[data::kY] = "changed";
  grid.set().answers[0] = 1;
  write_back(grid, target);
  EXPECT_EQ(target.y()[0], 9.0f);
  EXPECT_EQ(target.crop_start, 2);
  EXPECT_EQ(target.headers[data::kY], "Y");
  EXPECT_EQ(target.answers[0], 12.5);
  EXPECT_TRUE(target.modified);
}

}  // namespace
}  // namespace tidemark::formula
