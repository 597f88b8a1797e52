// Import of comma-separated lab exports: separators, decimal commas, missing cells, long
// and wide layouts, and the messages of refused files. Expected values are read off the
// input texts by hand.
#include "data/csv_import.h"

#include <gtest/gtest.h>

#include "data/csv_table.h"

namespace tidemark::data {
namespace {

constexpr float kM = core::kMissingF;

struct SplitCase {
  const char* name;
  const char* text;
  char separator;
  std::vector<std::vector<std::string>> rows;
};

class SplitCsv : public ::testing::TestWithParam<SplitCase> {};

TEST_P(SplitCsv, GivesTheCellsOfEachRow) {
  const SplitCase& c = GetParam();
  const CsvTable t = split_csv(c.text);
  ASSERT_TRUE(t.ok()) << t.message;
  EXPECT_EQ(t.separator, c.separator);
  ASSERT_EQ(t.rows.size(), c.rows.size());
  for (std::size_t r = 0; r < c.rows.size(); ++r) EXPECT_EQ(t.rows[r].cells, c.rows[r]) << r;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SplitCsv,
    ::testing::Values(
        SplitCase{"comma", "t,LH\n0,1.5\n", ',', {{"t", "LH"}, {"0", "1.5"}}},
        SplitCase{"semicolon_keeps_decimal_commas", "t;LH\r\n0;1,5\r\n", ';',
                  {{"t", "LH"}, {"0", "1,5"}}},
        SplitCase{"tab", "t\tLH\n0\t2\n", '\t', {{"t", "LH"}, {"0", "2"}}},
        SplitCase{"quoted_cells_hold_separators_quotes_and_line_breaks",
                  "\"a,b\",\"say \"\"hi\"\"\"\n\"x\ny\",2\n", ',',
                  {{"a,b", "say \"hi\""}, {"x\ny", "2"}}},
        SplitCase{"blank_lines_skipped_and_empty_cells_kept", "t,LH\n\n0,,\n  \n", ',',
                  {{"t", "LH"}, {"0", "", ""}}},
        SplitCase{"semicolon_inside_quotes_is_not_the_separator", "\"a;b\",c\n", ',',
                  {{"a;b", "c"}}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(SplitCsv, NamesTheLineAndCharacterOfABrokenQuote) {
  EXPECT_EQ(split_csv("t,LH\n0,\"1.5\n").message, "Line 2, character 3: a double quote is not closed");
  EXPECT_EQ(split_csv("t,LH\n0,\"1\"5\n").message,
            "Line 2, character 6: text after a closing double quote");
}

struct ImportCase {
  const char* name;
  const char* text;
  const char* options;
  std::vector<std::string> handles;
  std::vector<std::vector<float>> y;  // per data set
};

class ImportCsv : public ::testing::TestWithParam<ImportCase> {};

TEST_P(ImportCsv, GivesOneDataSetPerSubjectAndConcentrationColumn) {
  const ImportCase& c = GetParam();
  CsvImportOptions options;
  std::string message;
  ASSERT_TRUE(parse_csv_options(c.options, options, message)) << message;
  const CsvImportResult r = import_csv(c.text, "lab.csv", options);
  ASSERT_TRUE(r.ok()) << r.message;
  ASSERT_EQ(r.sets.size(), c.handles.size());
  for (std::size_t k = 0; k < c.handles.size(); ++k) {
    EXPECT_EQ(r.sets[k].handle, c.handles[k]);
    EXPECT_EQ(r.sets[k].y(), c.y[k]) << c.handles[k];
  }
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, ImportCsv,
    ::testing::Values(
        ImportCase{"one_column", "min,LH\n0,1.5\n10,2\n", "", {"LH"}, {{1.5f, 2.0f}}},
        ImportCase{"wide_by_default", "min,LH,FSH\n0,1,5\n10,2,6\n", "", {"LH", "FSH"},
                   {{1, 2}, {5, 6}}},
        ImportCase{"decimal_commas_and_missing_cells",
                   "min;LH\n0;1,25\n10;NA\n20;\n30;nan\n40;2\n", "", {"LH"},
                   {{1.25f, kM, kM, kM, 2.0f}}},
        ImportCase{"long_by_subject_in_order_of_appearance",
                   "id,min,LH\nS2,0,1\nS1,0,3\nS2,10,2\nS1,10,4\n", "SUBJECT=id CONC=lh",
                   {"S2", "S1"}, {{1, 2}, {3, 4}}},
        ImportCase{"long_and_wide", "id,min,LH,FSH\nA,0,1,5\nA,10,2,6\n", "SUBJECT=ID",
                   {"A LH", "A FSH"}, {{1, 2}, {5, 6}}},
        ImportCase{"only_one_subject", "id,min,LH\nS2,0,1\nS1,0,3\nS2,10,2\nS1,10,4\n",
                   "SUBJECT=id ONLY=S1", {"S1"}, {{3, 4}}},
        ImportCase{"columns_chosen_by_name_with_blanks",
                   "\"LH (IU/L)\",t,se\n1,0,0.1\n2,10,0.2\n",
                   "TIME=T CONC=\"LH (IU/L)\" SEM=se", {"LH (IU/L)"}, {{1, 2}}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(ImportCsv, KeepsTimesErrorsAndReplicatesAndNamesTheSets) {
  CsvImportOptions o;
  o.conc = {"LH"};
  o.sem = {"se"};
  o.reps = {"n"};
  const CsvImportResult r = import_csv("min;LH;se;n\n0;1,5;0,1;2\n10;2;;\n", "lab.csv", o);
  ASSERT_TRUE(r.ok()) << r.message;
  const DataSet& s = r.sets.front();
  EXPECT_EQ(s.x(), (std::vector<float>{0, 10}));
  EXPECT_EQ(s.dy(), (std::vector<float>{0.1f, kM}));
  EXPECT_EQ(s.reps(), (std::vector<float>{2, kM}));
  EXPECT_EQ(s.file_name, "lab.csv");
  EXPECT_EQ(s.headers[kX], "min");
  EXPECT_EQ(s.headers[kDY], "se");
  // Without a REPS column every point counts once.
  EXPECT_EQ(import_csv("t,LH\n0,1\n1,2\n", "x.csv", {}).sets.front().reps(),
            (std::vector<float>{1, 1}));
  // Several sets from one file are told apart by their handle in the file name.
  EXPECT_EQ(import_csv("t,A,B\n0,1,2\n1,2,3\n", "x.csv", {}).sets[1].file_name, "x.csv [B]");
}

struct RefusalCase {
  const char* name;
  const char* text;
  const char* options;
  const char* message;
};

class RefuseCsv : public ::testing::TestWithParam<RefusalCase> {};

TEST_P(RefuseCsv, SaysWhyAndGivesNothing) {
  const RefusalCase& c = GetParam();
  CsvImportOptions options;
  std::string message;
  ASSERT_TRUE(parse_csv_options(c.options, options, message)) << message;
  const CsvImportResult r = import_csv(c.text, "lab.csv", options);
  EXPECT_FALSE(r.ok());
  EXPECT_TRUE(r.sets.empty());
  EXPECT_EQ(r.message, c.message);
}

INSTANTIATE_TEST_SUITE_P(
    Files, RefuseCsv,
    ::testing::Values(
        RefusalCase{"not_a_number", "t,LH\n0,1\n10,1.x\n", "",
                    "Line 3, column 2 (LH): \"1.x\" is not a number"},
        RefusalCase{"infinity", "t,LH\n0,1\n10,Inf\n", "",
                    "Line 3, column 2 (LH): \"Inf\" is not a number"},
        RefusalCase{"unknown_column", "t,LH\n0,1\n", "CONC=FSH",
                    "Line 1: the header has no column \"FSH\""},
        RefusalCase{"too_few_points", "t,LH\n0,1\n", "",
                    "Data Read Error, not enough data points! (LH)"},
        RefusalCase{"one_subject_too_short", "id,t,LH\nA,0,1\nA,1,2\nB,0,1\n", "SUBJECT=id",
                    "Data Read Error, not enough data points! (B)"},
        RefusalCase{"empty_file", "", "", "The file has no header row"},
        RefusalCase{"header_only", "t,LH\n", "", "Data Read Error, not enough data points!"},
        RefusalCase{"no_concentration_column", "t\n0\n1\n", "",
                    "There is no concentration column"},
        RefusalCase{"sem_count", "t,A,B,s\n0,1,2,3\n1,1,2,3\n", "CONC=A,B SEM=s",
                    "2 concentration columns but 1 SEM columns"},
        RefusalCase{"empty_subject", "id,t,LH\nA,0,1\n,1,2\n", "SUBJECT=id",
                    "Line 3, column 1 (id): the subject is empty"},
        RefusalCase{"missing_subject", "id,t,LH\nA,0,1\nA,1,2\n", "SUBJECT=id ONLY=Z",
                    "There is no subject \"Z\""}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(CsvOptions, ReadAndWriteBackTheSameWords) {
  CsvImportOptions o;
  std::string message;
  ASSERT_TRUE(parse_csv_options("time=min  Conc=LH,FSH SUBJECT=\"subject id\"", o, message));
  EXPECT_EQ(o.time, "min");
  EXPECT_EQ(o.conc, (std::vector<std::string>{"LH", "FSH"}));
  EXPECT_EQ(o.subject, "subject id");
  EXPECT_EQ(csv_options_text(o), " TIME=min CONC=LH,FSH SUBJECT=\"subject id\"");
  CsvImportOptions again;
  ASSERT_TRUE(parse_csv_options(csv_options_text(o), again, message));
  EXPECT_EQ(again, o);
  EXPECT_FALSE(parse_csv_options("COLOUR=red", o, message));
  EXPECT_EQ(message, "Unknown option \"COLOUR\": TIME, CONC, SEM, REPS, SUBJECT, ONLY");
  EXPECT_FALSE(parse_csv_options("LH", o, message));
  EXPECT_EQ(message, "\"LH\" is not a KEY=value option");
}

}  // namespace
}  // namespace tidemark::data
