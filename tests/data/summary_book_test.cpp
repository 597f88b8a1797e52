// The summary book table: columns by spreadsheet letter, one row per data set.
#include "data/summary_book.h"

#include <gtest/gtest.h>

#include <string>

#include "core/missing.h"
#include "data/store.h"
#include "data/summary_row.h"

namespace tidemark::data {
namespace {

TEST(SummaryRow, ColumnLettersCountAsASpreadsheetDoes) {
  // Letters and numbers as a spreadsheet numbers its columns: Z = 26, AA = 26 + 1,
  // AP = 26 + 16, AZ = 52, BA = 53, ZZ = 26·26 + 26 = 702, AAA = 703.
  struct Case {
    const char* letters;
    int number;
  };
  for (const Case& c : {Case{"A", 1}, Case{"Q", 17}, Case{"Z", 26}, Case{"AA", 27}, Case{"AP", 42},
                        Case{"AZ", 52}, Case{"BA", 53}, Case{"ZZ", 702}, Case{"AAA", 703}}) {
    EXPECT_EQ(column_number(c.letters), c.number) << c.letters;
    EXPECT_EQ(column_letters(c.number), c.letters) << c.number;
  }
  for (const char* bad : {"", "a", "A1", "AAAA", "-"}) EXPECT_EQ(column_number(bad), 0) << bad;
}

TEST(SummaryRow, ZComesBeforeAA) {
  SummaryRow row{{"AA", {"second", 2}}, {"Z", {"first", 1}}, {"B", {"zeroth", 0}}};
  std::string order;
  for (const auto& [letters, cell] : row) order += letters + " ";
  EXPECT_EQ(order, "B Z AA ");
}

TEST(SummaryBook, ResultsStandUnderTheirLettersWithEmptyCellsElsewhere) {
  Store store;
  DataSet lh;
  lh.file_name = "lh, day 1.dat";
  lh.summary["D"] = {"Four", 0.25F};
  lh.summary["B"] = {"Two", 2.0F};
  DataSet gh;
  gh.file_name = "gh.dat";
  gh.summary["B"] = {"Another title", core::kMissingF};
  gh.summary["C"] = {"Three", 1e-5F};
  store.append(lh);
  store.append(gh);
  DataSet none;
  none.file_name = "none.dat";
  store.append(none);
  // Columns A to D: the title of B from the first set that fills it; the comma in the
  // file name quotes the cell; the missing value and the cells not filled are empty.
  EXPECT_EQ(summary_book_text(store),
            "File Name,Two,Three,Four\n"
            "\"lh, day 1.dat\",2,,0.25\n"
            "gh.dat,,1e-05,\n"
            "none.dat,,,\n");
}

TEST(SummaryBook, WithoutResultsOnlyTheFileNamesAreWritten) {
  Store store;
  DataSet a;
  a.file_name = "a.dat";
  store.append(a);
  EXPECT_EQ(summary_book_text(store), "File Name\na.dat\n");
}

}  // namespace
}  // namespace tidemark::data
