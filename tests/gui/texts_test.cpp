// The chooser filters and the spreadsheet's grid text, read by the window.
#include <gtest/gtest.h>

#include "gui/file_filter.h"
#include "gui/sheet_text.h"

namespace tidemark::gui {
namespace {

struct FilterCase {
  const char* filter;
  std::vector<std::string> expected;
};

TEST(FileFilter, PairsBecomeNameFiltersAndStarDotStarEveryFile) {
  const FilterCase cases[] = {
      {"Batch Files (*.bat)|*.bat|All Files (*.*)|*.*|", {"Batch Files (*.bat)", "All Files (*)"}},
      {"PostScript Files (*.ps;*.eps)|*.ps;*.eps|", {"PostScript Files (*.ps *.eps)"}},
      {"Listing Files|*.lst|", {"Listing Files (*.lst)"}},
      {"", {}},
  };
  for (const FilterCase& c : cases) EXPECT_EQ(name_filters(c.filter), c.expected) << c.filter;
}

TEST(SheetText, ReadsLabelsInEqualCellsAndRowsOfNumbers) {
  // Written by hand in the shell's layout: N in 6 columns, each label right-aligned in
  // 15, a label with a blank inside ("LH 1") taking one cell.
  const std::string text =
      "Data Spread Sheet: lh.dat, 2 rows\n"
      "     N           TIME           LH 1\n"
      "     1         0.0000         3.2000\n"
      "     2         10.000            NaN\n";
  const SheetTable t = read_sheet_text(text);
  EXPECT_EQ(t.title, "Data Spread Sheet: lh.dat, 2 rows");
  EXPECT_EQ(t.labels, (std::vector<std::string>{"N", "TIME", "LH 1"}));
  ASSERT_EQ(t.rows.size(), 2u);
  EXPECT_EQ(t.rows[1], (std::vector<std::string>{"2", "10.000", "NaN"}));
  EXPECT_TRUE(read_sheet_text("just a listing\n").labels.empty());
}

}  // namespace
}  // namespace tidemark::gui
