#pragma once
// The formula assignment of the data spreadsheet: "LABEL = formula" or
// "LABEL(first:last) = formula" computes a column, row by row, from the other columns.
//
//   assign_formula(grid, "Y(3:) = 0", parser);       // rows 3 to the last
//   assign_formula(grid, "SEM = 0.1*CONC", parser);  // every row
#include <string_view>

#include "formula/function_parser.h"
#include "formula/spreadsheet_grid.h"

namespace tidemark::formula {

// The rows an assignment writes: 1-based, first <= last.
struct RowRange {
  int first = 1;
  int last = 0;
};

// Carries out the assignment `text` on `grid`, with `parser` recreated to one slot whose
// variables are the grid's labels (variable 1 is N, variable k is column k).
//
// Refusals, each titled "Function Parse Error" and changing nothing:
//   no "="                                   "*** No Equal Sign"
//   a "(" after the label whose range does not read as (first:last) with whole bounds,
//   1 <= first <= last <= rows (an empty first bound is 1, an empty last the last row)
//                                            "*** Invalid Range " + left side +
//                                            " Left Of Equal Sign"
//   a label that is no column                "*** Unknown Variable " + label
//   the label N                              "*** N Cannot Be On Left Of Equal Sign"
//   a syntax error on the right              the parser's message, the formula and a
//                                            "?" under the place
// The left side is the text before the first "=", cut to 80 characters, without
// surrounding blanks; the label is compared exactly (letter case counts).
//
// Then each row of the range, in increasing order, is evaluated with that row's cells as
// the variables (N = the row number) and stored through Grid::set_value. A row in which
// a variable the formula reads is missing gets a missing result without evaluation. An
// evaluation error stops the assignment with the parser's message and the row number,
// titled "Function Evaluation Error", and leaves every row as it was. A successful
// assignment that stored some rows as missing (a missing input, a result that is not a
// number or beyond the column's range) says how many in its lines ("2 of 6 rows were
// stored as missing ..."), titled "Data Spread Sheet".
SheetResult assign_formula(Grid& grid, std::string_view text, FunctionParser& parser);

}  // namespace tidemark::formula
