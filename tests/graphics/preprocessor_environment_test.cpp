// Environment lookups and the predefined symbols that depend on the moment and place of
// initialisation.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include "graphics/pp_test_files.h"
#include "graphics/preprocessor.h"

namespace tidemark::graphics {
namespace {

using testing::MemoryFiles;
using testing::run;
using Lines = std::vector<std::string>;

class PreprocessorEnvironment : public ::testing::Test {
 protected:
  void SetUp() override {
    setenv("TM_PP_SET", "hello world", 1);
    setenv("TM_PP_EMPTY", "", 1);
    setenv("TM_PP_BLANK", "   ", 1);
    unsetenv("TM_PP_UNSET");
  }
  void TearDown() override {
    for (const char* name : {"TM_PP_SET", "TM_PP_EMPTY", "TM_PP_BLANK"}) unsetenv(name);
  }
};

TEST_F(PreprocessorEnvironment, IfenvirNeedsASetNonBlankVariable) {
  MemoryFiles files;
  std::string text;
  for (const char* name : {"TM_PP_SET", "TM_PP_EMPTY", "TM_PP_BLANK", "TM_PP_UNSET"}) {
    text += std::string("#ifenvir ") + name + "\nset " + name + "\n#endif \n";
    text += std::string("#ifnenvir ") + name + "\nunset " + name + "\n#endif \n";
  }
  files.files["top"] = text;
  EXPECT_EQ(run(files).lines, (Lines{"set TM_PP_SET", "unset TM_PP_EMPTY", "unset TM_PP_BLANK",
                                     "unset TM_PP_UNSET"}));
}

TEST_F(PreprocessorEnvironment, EnvironDefinesTheVariableOnceAndRefusesUnsetOnes) {
  MemoryFiles files;
  files.files["top"] =
      "#environ TM_PP_SET\n#environ TM_PP_SET\n#environ TM_PP_EMPTY\n#environ TM_PP_UNSET\n"
      "[TM_PP_SET]\n#ifdef TM_PP_EMPTY \nno\n#endif \n";
  const auto out = run(files);
  EXPECT_EQ(out.lines, (Lines{";pp error: #environ TM_PP_SET", ";pp error: #environ TM_PP_EMPTY",
                              ";pp error: #environ TM_PP_UNSET", "[hello world]"}));
  EXPECT_EQ(out.errors, 3);
}

TEST(PreprocessorClock, DateAndTimeAreTheMomentOfInitialisation) {
  char before_date[16], before_time[16], after_date[16], after_time[16];
  std::time_t now = std::time(nullptr);
  std::strftime(before_date, sizeof before_date, "%Y-%m-%d", std::localtime(&now));
  std::strftime(before_time, sizeof before_time, "%H:%M:%S", std::localtime(&now));
  MemoryFiles files;
  files.files["top"] = "__DATE__\n__TIME__\n__CURRENT_PATH__\n";
  const auto out = run(files);
  now = std::time(nullptr);
  std::strftime(after_date, sizeof after_date, "%Y-%m-%d", std::localtime(&now));
  std::strftime(after_time, sizeof after_time, "%H:%M:%S", std::localtime(&now));
  ASSERT_EQ(out.lines.size(), 3u);
  EXPECT_TRUE(out.lines[0] == before_date || out.lines[0] == after_date) << out.lines[0];
  if (std::string(before_date) == after_date) {  // no midnight in between
    EXPECT_GE(out.lines[1], std::string(before_time));
    EXPECT_LE(out.lines[1], std::string(after_time));
  }
  EXPECT_EQ(out.lines[2], std::filesystem::current_path().string());
}

}  // namespace
}  // namespace tidemark::graphics
