#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_line.h"
#include "data/keyword_line.h"

namespace tidemark::data {
namespace {

using namespace std::literals;
constexpr float M = core::kMissingF;

// Expected values by hand from the rules: fields left to right into X Y DY REPS FX1..FX4,
// empty comma fields and "NaN" missing, omitted DY and FX missing, omitted REPS 1.
TEST(DataLine, ReadsBlankAndCommaSeparatedValuesWithMissingFields) {
  const std::pair<std::string_view, std::array<float, kColumnCount>> cases[] = {
      {"0.0  2.049  0.1020  2", {0, 2.049f, 0.102f, 2, M, M, M, M}},
      {"5,0.3,,3", {5, 0.3f, M, 3, M, M, M, M}},
      {"1,,,2", {1, M, M, 2, M, M, M, M}},  // ",,,": two empty fields, not one
      {"1, ,2", {1, M, 2, 1, M, M, M, M}},
      {"1 , 2", {1, 2, M, 1, M, M, M, M}},
      {",1", {M, 1, M, 1, M, M, M, M}},
      {"1,2,", {1, 2, M, 1, M, M, M, M}},
      {"1,2,3,,", {1, 2, 3, M, M, M, M, M}},  // an empty REPS field is missing, not 1
      {"5 NaN", {5, M, M, 1, M, M, M, M}},
      {"1NaN2", {1, M, 2, 1, M, M, M, M}},  // "NaN" is replaced wherever it stands
      {"1\t2\r", {1, 2, M, 1, M, M, M, M}},
      {"1.0D0 2.5E-1 1.0+1", {1, 0.25f, 10, 1, M, M, M, M}},
      {"1 2 3 4 5 6 7 8 9 junk", {1, 2, 3, 4, 5, 6, 7, 8}},  // items past FX4 unread
  };
  for (const auto& [line, values] : cases) {
    std::array<float, kColumnCount> v;
    Column bad = kX;
    EXPECT_TRUE(parse_data_line(line, v, bad)) << line;
    EXPECT_EQ(v, values) << line;
  }
}

TEST(DataLine, NamesTheFirstColumnThatCannotBeRead) {
  const std::pair<std::string_view, Column> cases[] = {
      {"30.0  4.2O  0.23 2", kY},
      {"1", kY},
      {",", kY},
      {"1 2 3 1e39", kReps},
      {"1 2 3 4 x 6", kFx1},
      {"1 2 3 4 5 6 7 x", kFx4},
      {"inf 2", kX},
      {"-nan 2", kX},
      {"1\0 2"sv, kX},  // NUL is no separator
  };
  for (const auto& [line, column] : cases) {
    std::array<float, kColumnCount> v;
    Column bad = kDY;
    EXPECT_FALSE(parse_data_line(line, v, bad)) << line;
    EXPECT_EQ(bad, column) << line;
  }
  EXPECT_EQ(data_error_message(kFx4, 12), "Native Mode Read Error Reading Data FX4(12) Field");
}

using Effect = KeywordResult::Effect;

TEST(KeywordLine, StoresEachKeywordValueWhateverTheLetterCase) {
  const std::pair<std::string_view, std::function<bool(const DataSet&)>> cases[] = {
      {"!ny 1 extra", [](const DataSet& s) { return s.ny == 1; }},
      {"!DSType =     7", [](const DataSet& s) { return s.ds_type == 7; }},
      {"!CROP_Start=2", [](const DataSet& s) { return s.crop_start == 2; }},
      {"!crop_end +9", [](const DataSet& s) { return s.crop_end == 9; }},
      {"!FILENAME = my file.dat", [](const DataSet& s) { return s.file_name == "my file.dat"; }},
      {"!FILESUBTYPE = = x", [](const DataSet& s) { return s.file_subtype == "= x"; }},
      {"!answer( 200 )=-1.E35", [](const DataSet& s) { return s.answers[199] == -1.E35; }},
      {"!REAL(35) = 1.0D-3", [](const DataSet& s) { return s.reals[34] == 1.0e-3f; }},
      {"!Integer(9) = -4", [](const DataSet& s) { return s.integers[8] == -4; }},
      {"!STRING(2) = IU per L", [](const DataSet& s) { return s.strings[1] == "IU per L"; }},
      {"!HEADER_FX4=LH (IU/L)\r", [](const DataSet& s) { return s.headers[kFx4] == "LH (IU/L)"; }},
  };
  for (const auto& [line, stored] : cases) {
    DataSet set;
    const auto r = apply_keyword_line(line, "s.dat", set);
    EXPECT_EQ(r.effect, Effect::kApplied) << line;
    EXPECT_TRUE(stored(set)) << line;
  }
  const std::pair<std::string_view, Effect> switches[] = {{"!VERBOSE ON", Effect::kVerboseOn},
                                                          {"!verboseOFF", Effect::kVerboseOff},
                                                          {"!verbose = off", Effect::kVerboseOff},
                                                          {"!COMMENT", Effect::kUnknown}};
  for (const auto& [line, effect] : switches) {
    DataSet set;
    EXPECT_EQ(apply_keyword_line(line, "s.dat", set).effect, effect) << line;
    EXPECT_EQ(set, DataSet{}) << line;
  }
}

TEST(KeywordLine, RefusedLineGivesItsMessagesAndLeavesTheRecordAlone) {
  const std::string ans = "Native Mode Read Error Reading !ANSWER Field";
  const std::pair<std::string_view, std::vector<std::string>> cases[] = {
      {"!NX=2", {"!NX value was too big s.dat"}},
      {"!NY = -3", {"!NY value was too small s.dat"}},
      {"!NY = 1.0", {"Native Mode Read Error Reading !NY Field"}},
      {"!DSTYPE = x", {"Native Mode Read Error Reading !DSType Field"}},
      {"!CROP_Start =", {"Native Mode Read Error Reading !CROP_Start Field"}},
      {"!CROP_End = 99999999999", {"Native Mode Read Error Reading !CROP_End Field"}},
      {"!FILENAME =  ", {"!Invalid File Name", "Native Mode Read Error Reading !FILENAME Field"}},
      {"!HANDLE", {"!Invalid HANDLE", "Native Mode Read Error Reading !HANDLE Field"}},
      {"!FILETYPE=", {"!Invalid FILETYPE", "Native Mode Read Error Reading !FILETYPE Field"}},
      {"!FILESUBTYPE =",
       {"!Invalid FILESUBTYPE", "Native Mode Read Error Reading !FILETSUBYPE Field"}},
      {"!ANSWER(201) = 3.5", {"!Invalid INDEX !ANSWER(201) = 3.5", ans}},
      {"!ANSWER(0) = 1", {"!Invalid INDEX !ANSWER(0) = 1", ans}},
      {"!ANSWER(x) = 1", {"!Invalid INDEX !ANSWER(x) = 1", ans}},
      {"!ANSWER(3) = 1e999", {"!Invalid VALUE !ANSWER(3) = 1e999", ans}},
      {"!ANSWER(3)", {"!Invalid VALUE !ANSWER(3)", ans}},
      {"!ANSWER 3 = 1", {"!UNKNOWN ERROR !ANSWER 3 = 1", ans}},
      {"!ANSWER(3 = 1", {"!UNKNOWN ERROR !ANSWER(3 = 1", ans}},
      {"!REAL(1) = 1e39",
       {"!Invalid VALUE !REAL(1) = 1e39", "Native Mode Read Error Reading !REAL Field"}},
      {"!INTEGER(10) = 1",
       {"!Invalid INDEX !INTEGER(10) = 1", "Native Mode Read Error Reading !INTEGER Field"}},
      {"!STRING(1) =",
       {"!Invalid VALUE !STRING(1) =", "Native Mode Read Error Reading !STRING Field"}},
      {"!header_dy =", {"Native Mode Read Error Reading !Invalid VALUE !header_dy ="}},
  };
  for (const auto& [line, messages] : cases) {
    DataSet set;
    const auto r = apply_keyword_line(line, "s.dat", set);
    EXPECT_EQ(r.effect, Effect::kError) << line;
    EXPECT_EQ(r.messages, messages) << line;
    EXPECT_EQ(set, DataSet{}) << line;
  }
}

}  // namespace
}  // namespace tidemark::data
