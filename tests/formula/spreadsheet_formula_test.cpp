// The spreadsheet's formula assignment: refusals that change nothing, row ranges,
// rounding into real and integer columns, missing operands and evaluation errors.
#include "formula/spreadsheet_formula.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/missing.h"
#include "formula/spreadsheet_test_data.h"

namespace tidemark::formula {
namespace {

using testing::series;
constexpr int kY = 3;     // grid column of the concentration
constexpr int kReps = 5;  // grid column of REPS

std::vector<double> column(const Grid& grid, int c) {
  std::vector<double> v;
  for (int r = 1; r <= grid.rows(); ++r) v.push_back(grid.value(r, c));
  return v;
}

struct Refusal {
  const char* text;
  const char* message;
};

TEST(SpreadsheetFormula, RefusedAssignmentsShowTheirMessageAndChangeNothing) {
  // Messages as the program states them; the range cases each break one rule of
  // LABEL(first:last) on a grid of 5 rows.
  const Refusal cases[] = {
      {"Y 2", "*** No Equal Sign"},
      {"N = 2*N", "*** N Cannot Be On Left Of Equal Sign"},
      {"Q = 1", "*** Unknown Variable Q"},
      {"y = 1", "*** Unknown Variable y"},
      {"(1:2) = 1", "*** Unknown Variable (1:2)"},
      {"Y(3 = 0", "*** Invalid Range Y(3 Left Of Equal Sign"},
      {"Y(3) = 0", "*** Invalid Range Y(3) Left Of Equal Sign"},
      {"Y)3:( = 0", "*** Invalid Range Y)3:( Left Of Equal Sign"},
      {"Y(3:2) = 0", "*** Invalid Range Y(3:2) Left Of Equal Sign"},
      {"Y(0:2) = 0", "*** Invalid Range Y(0:2) Left Of Equal Sign"},
      {"Y(:6) = 0", "*** Invalid Range Y(:6) Left Of Equal Sign"},
      {"Y(a:2) = 0", "*** Invalid Range Y(a:2) Left Of Equal Sign"},
      {"Y(1:2)x = 0", "*** Invalid Range Y(1:2)x Left Of Equal Sign"},
      {"Q(1:2) = 0", "*** Unknown Variable Q"},
      {"Y = 2*-3", "*** Error in syntax of function string: Multiple operators"},
      {"Y = CONC", "*** Error in syntax of function string: Invalid element: CONC"},
  };
  for (const Refusal& c : cases) {
    Grid grid(series(5));
    const data::DataSet before = grid.set();
    FunctionParser parser;
    const SheetResult status = assign_formula(grid, c.text, parser);
    ASSERT_FALSE(status.ok()) << c.text;
    EXPECT_EQ(status.title, "Function Parse Error") << c.text;
    EXPECT_EQ(status.lines.front(), c.message) << c.text;
    EXPECT_EQ(grid.set(), before) << c.text;
  }
}

TEST(SpreadsheetFormula, SyntaxErrorIsShownWithTheFormulaAndAMarkUnderTheFault) {
  // The mark stands under the character the shown message names, counted by hand:
  // in "2*-3" the second operator "-" is the 3rd character; in ")(" the unmatched ")"
  // is the 1st, although the check reads on to the "(" and the end.
  struct Case {
    const char* text;
    const char* right;
    const char* mark;
  };
  for (const Case& c : {Case{"Y=2*-3", "2*-3", "  ?"}, Case{"Y=)(", ")(", "?"}}) {
    Grid grid(series(3));
    FunctionParser parser;
    const SheetResult status = assign_formula(grid, c.text, parser);
    ASSERT_EQ(status.lines.size(), 3u) << c.text;
    EXPECT_EQ(status.lines[1], c.right);
    EXPECT_EQ(status.lines[2], c.mark);
  }
}

struct Assignment {
  const char* text;
  std::vector<double> y;  // the concentration column afterwards, rows 1..6
};

TEST(SpreadsheetFormula, RangesWriteOnlyTheirRows) {
  // Hand derivation from Y = 1..6, TIME = 0, 10, ..., 50.
  const Assignment cases[] = {
      {"Y(3:) = 0", {1, 2, 0, 0, 0, 0}},
      {"Y(:5) = 0", {0, 0, 0, 0, 0, 6}},
      {"Y(:) = 7", {7, 7, 7, 7, 7, 7}},
      {"Y(2:4) = N*10", {1, 20, 30, 40, 5, 6}},
      {" Y ( 2 : 3 ) = -1", {1, -1, -1, 4, 5, 6}},
      {"Y(6:6)=Y+TIME", {1, 2, 3, 4, 5, 56}},
      {"Y = Y*Y - N", {0, 2, 6, 12, 20, 30}},
  };
  for (const Assignment& c : cases) {
    Grid grid(series(6));
    FunctionParser parser;
    ASSERT_TRUE(assign_formula(grid, c.text, parser).ok()) << c.text;
    EXPECT_EQ(column(grid, kY), c.y) << c.text;
  }
}

TEST(SpreadsheetFormula, RealResultsAreRoundedToSinglePrecision) {
  Grid grid(series(2));
  FunctionParser parser;
  ASSERT_TRUE(assign_formula(grid, "Y = 1/3", parser).ok());
  // python3: struct.unpack('f', struct.pack('f', 1/3))[0]
  EXPECT_EQ(grid.value(1, kY), 0.3333333432674408);
}

TEST(SpreadsheetFormula, IntegerColumnTakesTheNearestWholeNumberHalvesAwayFromZero) {
  struct Case {
    const char* text;
    double reps;
  };
  // By hand: 2.5 -> 3, -2.5 -> -3, 7/3 = 2.33 -> 2, 2.5 + 1e-9 -> 3.
  const Case cases[] = {
      {"REPS = 2.5", 3}, {"REPS = -2.5", -3}, {"REPS = 7/3", 2}, {"REPS = 2.5+1e-9", 3}};
  for (const Case& c : cases) {
    Grid grid(series(2));
    FunctionParser parser;
    ASSERT_TRUE(assign_formula(grid, c.text, parser).ok()) << c.text;
    EXPECT_EQ(grid.value(2, kReps), c.reps) << c.text;
  }
}

TEST(SpreadsheetFormula, MissingOperandOrUnrepresentableResultGivesAMissingCell) {
  struct Case {
    const char* text;
    int missing_row;  // 0: none
  };
  // Row 2's FX1 is made missing; (-8)^(1/3) is NaN in real arithmetic and 10^50 is
  // beyond single precision (largest about 3.4e38).
  const Case cases[] = {{"Y = FX1 + 1", 2},
                        {"Y = SEM + 1", 0},
                        {"Y = N*0 + (0-8)^(1/3)", -1},
                        {"Y = 10^50", -1},
                        {"REPS = 1e12", -1}};
  for (const Case& c : cases) {
    Grid grid(series(3));
    grid.set().columns[data::kFx1][1] = core::kMissingF;
    FunctionParser parser;
    const SheetResult status = assign_formula(grid, c.text, parser);
    ASSERT_TRUE(status.ok()) << c.text;
    const int col = std::string(c.text).rfind("REPS", 0) == 0 ? kReps : kY;
    for (int r = 1; r <= 3; ++r) {
      const bool expect_missing = c.missing_row == r || c.missing_row < 0;
      EXPECT_EQ(core::is_missing(grid.value(r, col)), expect_missing) << c.text << " row " << r;
    }
    // The user is told how many rows were stored as missing.
    const int count = c.missing_row < 0 ? 3 : (c.missing_row > 0 ? 1 : 0);
    const std::vector<std::string> note =
        count == 0 ? std::vector<std::string>{}
                   : std::vector<std::string>{
                         std::to_string(count) +
                         " of 3 rows were stored as missing (a missing input, a result that is "
                         "not a number, or one beyond the range of the column)."};
    EXPECT_EQ(status.lines, note) << c.text;
  }
}

TEST(SpreadsheetFormula, EvaluationErrorNamesTheRowAndLeavesEveryRowAsItWas) {
  Grid grid(series(5));
  const data::DataSet before = grid.set();
  FunctionParser parser;
  // 1/(N-3) divides by zero in row 3; sqrt(2-N) has a negative argument first in row 3,
  // which the parser reports as a LOG argument.
  const SheetResult div = assign_formula(grid, "Y = 1/(N-3)", parser);
  ASSERT_FALSE(div.ok());
  EXPECT_EQ(div.title, "Function Evaluation Error");
  EXPECT_EQ(div.lines, (std::vector<std::string>{"Division by zero", "Row 3"}));
  const SheetResult root = assign_formula(grid, "Y = sqrt(2-N)", parser);
  EXPECT_EQ(root.lines, (std::vector<std::string>{"Argument of LOG negative", "Row 3"}));
  EXPECT_EQ(grid.set(), before);
}

}  // namespace
}  // namespace tidemark::formula
