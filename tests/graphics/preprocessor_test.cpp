// Behaviour of the preprocessor on whole files: each case is a file, the lines it must
// yield and its error count. Expected lines are derived by hand from the directive
// rules, unless a comment says otherwise.
#include "graphics/preprocessor.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "graphics/pp_test_files.h"

namespace tidemark::graphics {
namespace {

using testing::MemoryFiles;
using testing::run;

struct Case {
  const char* name;
  std::string text;
  std::vector<std::string> expected;
  int errors;
};

void PrintTo(const Case& c, std::ostream* os) {
  *os << c.name;
}

class FileCase : public ::testing::TestWithParam<Case> {};

TEST_P(FileCase, YieldsExpectedLinesAndErrorCount) {
  MemoryFiles files;
  files.files["top"] = GetParam().text;
  const auto out = run(files);
  EXPECT_EQ(out.lines, GetParam().expected);
  EXPECT_EQ(out.errors, GetParam().errors);
  EXPECT_EQ(out.last, "");
}

const std::string k1024(1024, 'x');

INSTANTIATE_TEST_SUITE_P(
    Directives, FileCase,
    ::testing::Values(
        Case{"PlainLinesLoseTrailingBlanksAndCarriageReturns",
             "a b  \r\n\n  c\n",
             {"a b", "", "  c"},
             0},
        Case{"ElseAtEndOfLineIsAnOrdinaryLine", "#else\n#endif\n", {"#else", "#endif"}, 0},
        Case{"ElseOrEndifWithoutOpenBlockIsAnError",
             "#else \n#endif\tx\n",
             {";pp error: #else", ";pp error: #endif\tx"},
             2},
        Case{"UnknownOrMiscasedDirectiveIsAnError",
             "#pragma once\n#Define A 1\n# x\n",
             {";pp error: #pragma once", ";pp error: #Define A 1", ";pp error: # x"},
             3},
        Case{"IfdefSelectsBranch",
             "#ifdef __MS_WINDOWS__ \nwin\n#else \nother\n#endif \n"
             "#ifndef __MS_WINDOWS__\tx\nno\n#endif \n",
             {"win"},
             0},
        Case{"NestedBlockInInactiveBlockIsSkippedWholeAndItsElseDoesNotFlip",
             "#ifdef NOPE \n#ifdef X \n#else \nin\n#endif \nout\n#else \nyes\n#endif \n",
             {"yes"},
             0},
        Case{"AnyHashIfLineNestsWhileSkipping",
             "#ifdef NOPE \n#ifdef A \n#iffy\n#endif \n#endif \n"
             "still skipped\n#endif \nafter\n",
             {"after"},
             0},
        Case{"SecondDefinitionOfASymbolIsAnErrorAndKeepsTheFirst",
             "#define A 1\n#define A 2\nA\n",
             {";pp error: #define A 2", "1"},
             1},
        Case{"FirstThreeRowsCannotBeUndefinedButOsCan",
             "#undef __FILE__\n#undef __LINE__\n#undef __CURRENT_PATH__\n#undef __OS__\n#undef "
             "NOPE\n"
             "__OS__\n",
             {";pp error: #undef __FILE__", ";pp error: #undef __LINE__",
              ";pp error: #undef __CURRENT_PATH__", ";pp error: #undef NOPE", "__OS__"},
             4},
        Case{"UndefinedSymbolCanBeDefinedAgain",
             "#define A 1\n#undef A\n#define A 2\nA\n",
             {"2"},
             0},
        Case{"BlankNameIsRefused",
             "#define \n#define \"  \" 1\n",
             {";pp error: #define", ";pp error: #define \"  \" 1"},
             2},
        Case{"EmptyOrBlankLedValueDeletesTheName",
             "#define E\n#define Q \" x\"\n#define S \"a b\"\n<E><Q><S>\n",
             {"<><><a b>"},
             0},
        Case{"NameMatchesInsideWordsAndRowsApplyInOrder",
             "#define N 5\n#define X Y\n#define Y 2\n#define Z X\nANNA X Z\n",
             {"A55A 2 X"},
             0},
        Case{"LineSymbolIsARightJustifiedTenCharacterField",
             "\n\nL=__LINE__;\n",
             {"", "", "L=         3;"},
             0},
        Case{"PredefinedConstants",
             "__OS__ __FILE_CHAR__ __MS_WINDOWS__ __DATA_PATH__ __ROOT_PATH__ __FILE__\n",
             {"MS_Windows / 1 data root top"},
             0},
        Case{"VerboseNeedsOnOrOff",
             "#verbose yes\n#verbose \n",
             {";pp error: #verbose yes", ";pp error: #verbose"},
             2},
        // A value holding its name is replaced once per occurrence: "AA" -> "xA" "xA".
        Case{"SelfReferencingSymbolIsReplacedOncePerOccurrence",
             "#define A xA\n#define B B\nAA B\n",
             {"xAxA B"},
             0},
        // python3: leftmost-first rewriting ab -> bba of "aaaaab" gives 32 b then 5 a
        // after 31 replacements; of "a"*12+"b" it needs 1025 replacements.
        Case{"GrowingReplacementSettlesOrIsRefusedPastTheLimit",
             "#define ab bba\naaaaab\n" + std::string(12, 'a') + "b\n",
             {std::string(32, 'b') + "aaaaa", ";pp error: " + std::string(12, 'a') + "b"},
             1},
        Case{"SubstitutionIsCutAt1024",
             "#define X \"" + std::string(1000, 'v') + "\"\nXXX\n",
             {std::string(1024, 'v')},
             0},
        Case{"LongRecordIsCutAt1024",
             k1024 + "tail\n" + "#bad " + k1024 + "\n",
             {k1024, ";pp error: #bad " + std::string(1024 - 16, 'x')},
             1}),
    [](const ::testing::TestParamInfo<Case>& p) { return std::string(p.param.name); });

TEST(Preprocessor, CallBeforeInitialisationReportsNotInitialized) {
  Preprocessor pp;
  std::string buffer;
  EXPECT_EQ(pp.c_pre_proc(buffer), 1);
  EXPECT_EQ(buffer, ";pp not initialized");
}

TEST(Preprocessor, MissingTopLevelFileIsABadInputUnitEachCall) {
  MemoryFiles files;
  Preprocessor pp(files.opener());
  pp.c_pre_proc_init("absent", "", "", false, ';');
  std::string buffer;
  for (int call = 1; call <= 2; ++call) {
    EXPECT_EQ(pp.c_pre_proc(buffer), 1);
    EXPECT_EQ(buffer, "c_pre_proc: bad input unit");
    EXPECT_EQ(pp.error_count(), call);
  }
}

TEST(Preprocessor, AfterTheEndEveryCallReturnsOneWithEmptyBuffer) {
  MemoryFiles files;
  files.files["top"] = "only\n";
  Preprocessor pp(files.opener());
  pp.c_pre_proc_init("top", "", "", false, '!');
  std::string buffer;
  EXPECT_EQ(pp.c_pre_proc(buffer), 0);
  EXPECT_EQ(pp.c_pre_proc(buffer), 1);
  EXPECT_EQ(pp.c_pre_proc(buffer), 1);
  EXPECT_EQ(buffer, "");
}

TEST(Preprocessor, VerboseReturnsConsumedLinesAsComments) {
  MemoryFiles files;
  files.files["top"] =
      "#define A 1\n#ifdef NOPE \nA\n#endif \n#verbose off\n#define B 2\nA\n"
      "#verbose on\n#ifdef NOPE \n" +
      k1024 + "\n";
  const auto out = run(files, "top", true);
  const std::vector<std::string> expected{
      ";#define A 1", ";#ifdef NOPE",       ";A", ";#endif", "1", ";#verbose on",
      ";#ifdef NOPE", ";" + k1024.substr(1)};
  EXPECT_EQ(out.lines, expected);
}

TEST(Preprocessor, FiftyFirstRowAndMoreAreDefined) {
  MemoryFiles files;
  std::string text;
  for (int i = 1; i <= 60; ++i)
    text += "#define S" + std::to_string(i) + "_ v" + std::to_string(i) + "\n";
  files.files["top"] = text + "S41_ S60_\n";
  const auto out = run(files);
  // Ten predefined rows: S41_ is row 51, the first row beyond the starting capacity.
  EXPECT_EQ(out.lines, std::vector<std::string>{"v41 v60"});
  EXPECT_EQ(out.errors, 0);
}

TEST(Preprocessor, ReinitialisationClosesTheEarlierRunAndStartsAfresh) {
  MemoryFiles files;
  files.files["top"] = "#include inc\n#bad x\n";
  files.files["inc"] = "a\nb\n";
  Preprocessor pp(files.opener());
  pp.c_pre_proc_init("top", "", "", false, ';');
  std::string buffer;
  pp.c_pre_proc(buffer);
  EXPECT_EQ(pp.current_unit(), 9);
  pp.c_pre_proc_init("top", "", "", false, '#');
  EXPECT_EQ(files.closed, 2);
  EXPECT_EQ(pp.current_unit(), 8);
  const auto out = testing::read_all(pp);
  EXPECT_EQ(out.lines, (std::vector<std::string>{"a", "b", "#pp error: #bad x"}));
  EXPECT_EQ(out.errors, 1);
}

}  // namespace
}  // namespace tidemark::graphics
