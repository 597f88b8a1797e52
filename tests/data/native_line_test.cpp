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

constexpr float M = core::kMissingF;
using Values = std::array<float, kColumnCount>;

// Expected values follow from the rules by hand: fields left to right into X Y DY REPS
// FX1..FX4, empty comma fields and "NaN" missing, omitted DY/FX missing, omitted REPS 1.
TEST(DataLine, ReadsBlankAndCommaSeparatedValuesWithMissingFields) {
  struct Case {
    const char* line;
    Values values;
  };
  const Case cases[] = {
      {"0.0  2.049  0.1020  2", {0, 2.049f, 0.102f, 2, M, M, M, M}},
      {"5,0.3,,3", {5, 0.3f, M, 3, M, M, M, M}},
      {"1,,,2", {1, M, M, 2, M, M, M, M}},  // ",,," : two empty fields, not one
      {"1, ,2", {1, M, 2, 1, M, M, M, M}},
      {"1 , 2", {1, 2, M, 1, M, M, M, M}},
      {",1", {M, 1, M, 1, M, M, M, M}},
      {"1,2,", {1, 2, M, 1, M, M, M, M}},
      {"1,2,,", {1, 2, M, 1, M, M, M, M}},
      {"1,2,3,,", {1, 2, 3, M, M, M, M, M}},  // an empty REPS field is missing, not 1
      {"5 NaN", {5, M, M, 1, M, M, M, M}},
      {"NaN,NaN,NaN", {M, M, M, 1, M, M, M, M}},
      {"1NaN2", {1, M, 2, 1, M, M, M, M}},  // the text "NaN" is replaced wherever it is
      {"1\t2\r", {1, 2, M, 1, M, M, M, M}},
      {"1.0D0 2.5E-1 1.0+1", {1, 0.25f, 10, 1, M, M, M, M}},
      {"1 2 3 4 5 6 7 8", {1, 2, 3, 4, 5, 6, 7, 8}},
      {"1 2 3 4 5 6 7 8 9 junk", {1, 2, 3, 4, 5, 6, 7, 8}},  // items past FX4 unread
      {"-1.E35 -1.00000E+35", {M, M, M, 1, M, M, M, M}},
  };
  for (const auto& c : cases) {
    Values v;
    Column bad = kFx4;
    EXPECT_TRUE(parse_data_line(c.line, v, bad)) << c.line;
    EXPECT_EQ(v, c.values) << c.line;
  }
}

TEST(DataLine, NamesTheFirstColumnThatCannotBeRead) {
  using namespace std::literals;
  struct Case {
    std::string_view line;
    Column bad;
  };
  const Case cases[] = {
      {"30.0  4.2O  0.23 2", kY},
      {"1", kY},
      {",", kY},
      {"1 2 x", kDY},
      {"1 2 3 1e39", kReps},  // beyond single precision
      {"1 2 3 4 x 6", kFx1},
      {"1 2 3 4 5 x", kFx2},
      {"1 2 3 4 5 6 x", kFx3},
      {"1 2 3 4 5 6 7 x", kFx4},
      {"inf 2", kX},
      {"-nan 2", kX},
      {"1 2 4.2O x", kDY},
      {"1\0 2"sv, kX},  // NUL is no separator: "1<NUL>" is X
  };
  for (const auto& c : cases) {
    Values v;
    Column bad = kX;
    EXPECT_FALSE(parse_data_line(c.line, v, bad)) << c.line;
    EXPECT_EQ(bad, c.bad) << c.line;
  }
}

TEST(DataLine, ErrorMessageNamesColumnAndPoint) {
  EXPECT_EQ(data_error_message(kY, 12), "Native Mode Read Error Reading Data Y(12) Field");
  EXPECT_EQ(data_error_message(kReps, 3), "Native Mode Read Error Reading Data REPS(3) Field");
  EXPECT_EQ(data_error_message(kFx4, 1), "Native Mode Read Error Reading Data FX4(1) Field");
}

using Effect = KeywordResult::Effect;

TEST(KeywordLine, StoresEachKeywordValueWhateverTheLetterCase) {
  struct Case {
    const char* line;
    std::function<bool(const DataSet&)> stored;
  };
  const Case cases[] = {
      {"!NX=1", [](const DataSet& s) { return s.nx == 1; }},
      {"!ny 1 extra", [](const DataSet& s) { return s.ny == 1; }},
      {"!dstype = 3", [](const DataSet& s) { return s.ds_type == 3; }},
      {"!DSType =     7", [](const DataSet& s) { return s.ds_type == 7; }},
      {"!CROP_Start=2", [](const DataSet& s) { return s.crop_start == 2; }},
      {"!crop_end +9", [](const DataSet& s) { return s.crop_end == 9; }},
      {"!FILENAME = my file.dat", [](const DataSet& s) { return s.file_name == "my file.dat"; }},
      {"!HANDLE=S07-LH", [](const DataSet& s) { return s.handle == "S07-LH"; }},
      {"!FileType = ASCII", [](const DataSet& s) { return s.file_type == "ASCII"; }},
      {"!FILESUBTYPE = = x", [](const DataSet& s) { return s.file_subtype == "= x"; }},
      {"!ANSWER(12) = 3.5", [](const DataSet& s) { return s.answers[11] == 3.5; }},
      {"!answer( 200 )=-1.E35", [](const DataSet& s) { return s.answers[199] == -1.E35; }},
      {"!REAL(35) = 1.0D-3", [](const DataSet& s) { return s.reals[34] == 1.0e-3f; }},
      {"!Integer(9) = -4", [](const DataSet& s) { return s.integers[8] == -4; }},
      {"!STRING(2) = IU per L", [](const DataSet& s) { return s.strings[1] == "IU per L"; }},
      {"!header_fx4 = Cortisol (nmol/L)",
       [](const DataSet& s) { return s.headers[kFx4] == "Cortisol (nmol/L)"; }},
      {"!HEADER_Y=LH\r", [](const DataSet& s) { return s.headers[kY] == "LH"; }},
  };
  for (const auto& c : cases) {
    DataSet set;
    const auto r = apply_keyword_line(c.line, "s.dat", set);
    EXPECT_EQ(r.effect, Effect::kApplied) << c.line;
    EXPECT_TRUE(r.messages.empty()) << c.line;
    EXPECT_TRUE(c.stored(set)) << c.line;
  }
}

TEST(KeywordLine, VerboseSwitchesAndUnknownKeywordsChangeNothing) {
  const std::pair<const char*, Effect> cases[] = {
      {"!VERBOSE ON", Effect::kVerboseOn},
      {"!verboseOFF", Effect::kVerboseOff},
      {"!verbose = off", Effect::kVerboseOff},
      {"!COMMENT hello", Effect::kUnknown},
      {"!", Effect::kUnknown},
  };
  for (const auto& [line, effect] : cases) {
    DataSet set;
    EXPECT_EQ(apply_keyword_line(line, "s.dat", set).effect, effect) << line;
    EXPECT_EQ(set, DataSet{}) << line;
  }
}

TEST(KeywordLine, RefusedLineGivesItsMessagesAndLeavesTheRecordAlone) {
  const std::string ans = "Native Mode Read Error Reading !ANSWER Field";
  struct Case {
    const char* line;
    std::vector<std::string> messages;
  };
  const Case cases[] = {
      {"!NX=2", {"!NX value was too big s.dat"}},
      {"!NY=0", {"!NY value was too small s.dat"}},
      {"!NY = -3", {"!NY value was too small s.dat"}},
      {"!NX = one", {"Native Mode Read Error Reading !NX Field"}},
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
      {"!ANSWER(3) = abc", {"!Invalid VALUE !ANSWER(3) = abc", ans}},
      {"!ANSWER(3) = 1e999", {"!Invalid VALUE !ANSWER(3) = 1e999", ans}},
      {"!ANSWER(3)", {"!Invalid VALUE !ANSWER(3)", ans}},
      {"!ANSWER 3 = 1", {"!UNKNOWN ERROR !ANSWER 3 = 1", ans}},
      {"!ANSWER(3 = 1", {"!UNKNOWN ERROR !ANSWER(3 = 1", ans}},
      {"!REAL(36) = 1",
       {"!Invalid INDEX !REAL(36) = 1", "Native Mode Read Error Reading !REAL Field"}},
      {"!REAL(1) = 1e39",
       {"!Invalid VALUE !REAL(1) = 1e39", "Native Mode Read Error Reading !REAL Field"}},
      {"!INTEGER(10) = 1",
       {"!Invalid INDEX !INTEGER(10) = 1", "Native Mode Read Error Reading !INTEGER Field"}},
      {"!INTEGER(1) = 1.5",
       {"!Invalid VALUE !INTEGER(1) = 1.5", "Native Mode Read Error Reading !INTEGER Field"}},
      {"!STRING(4) = a",
       {"!Invalid INDEX !STRING(4) = a", "Native Mode Read Error Reading !STRING Field"}},
      {"!STRING(1) =",
       {"!Invalid VALUE !STRING(1) =", "Native Mode Read Error Reading !STRING Field"}},
      {"!header_dy =", {"Native Mode Read Error Reading !Invalid VALUE !header_dy ="}},
  };
  for (const auto& c : cases) {
    DataSet set;
    const auto r = apply_keyword_line(c.line, "s.dat", set);
    EXPECT_EQ(r.effect, Effect::kError) << c.line;
    EXPECT_EQ(r.messages, c.messages) << c.line;
    EXPECT_EQ(set, DataSet{}) << c.line;
  }
}

}  // namespace
}  // namespace tidemark::data
