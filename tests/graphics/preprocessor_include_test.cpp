// Included files: the include stack, unit numbers, search order and the predefined
// symbols that follow the file being read. Expected lines are derived by hand.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "graphics/pp_test_files.h"
#include "graphics/preprocessor.h"

namespace tidemark::graphics {
namespace {

using testing::MemoryFiles;
using testing::run;
using Lines = std::vector<std::string>;

TEST(PreprocessorInclude, TwentyLevelsNestAndTheTwentyFirstIsRefused) {
  MemoryFiles files;
  for (int i = 1; i <= 21; ++i) {
    files.files["f" + std::to_string(i)] =
        "#include f" + std::to_string(i + 1) + "\nafter" + std::to_string(i) + "\n";
  }
  Preprocessor pp(files.opener());
  pp.c_pre_proc_init("f1", "", "", false, ';');
  std::string buffer;
  ASSERT_EQ(pp.c_pre_proc(buffer), 0);
  EXPECT_EQ(buffer, ";pp error: #include f21");
  // Level 20 holds the 20th unit counted from 8.
  EXPECT_EQ(pp.current_unit(), 27);
  Lines expected;
  for (int i = 20; i >= 1; --i) expected.push_back("after" + std::to_string(i));
  const auto out = testing::read_all(pp);
  EXPECT_EQ(out.lines, expected);
  EXPECT_EQ(out.errors, 1);
}

TEST(PreprocessorInclude, FreedUnitIsTakenAgainByTheNextInclude) {
  MemoryFiles files;
  files.files["top"] = "#include a\n#include b\n";
  files.files["a"] = "a\n";
  files.files["b"] = "b\n";
  Preprocessor pp(files.opener());
  pp.c_pre_proc_init("top", "", "", false, ';');
  std::string buffer;
  for (const char* line : {"a", "b"}) {
    ASSERT_EQ(pp.c_pre_proc(buffer), 0);
    EXPECT_EQ(buffer, line);
    EXPECT_EQ(pp.current_unit(), 9);
  }
}

TEST(PreprocessorInclude, FileAndLineFollowTheFileBeingRead) {
  MemoryFiles files;
  files.files["top"] = "__FILE__ __LINE__\n#include \"in c\"\n__FILE__ __LINE__\n";
  files.files["in c"] = "\n__FILE__ __LINE__\n";
  // __LINE__ is 9 blanks and the digit for lines 1 to 9.
  const std::string pad(9, ' ');
  EXPECT_EQ(run(files).lines,
            (Lines{"top " + pad + "1", "", "in c " + pad + "2", "top " + pad + "3"}));
}

TEST(PreprocessorInclude, MissingFileIsAnErrorAndTheIncludingFileGoesOn) {
  MemoryFiles files;
  files.files["top"] = "#include nowhere\n#include \nnext\n";
  const auto out = run(files);
  EXPECT_EQ(out.lines, (Lines{";pp error: #include nowhere", ";pp error: #include", "next"}));
  EXPECT_EQ(out.errors, 2);
}

TEST(PreprocessorInclude, AngledNameIsLookedForInDataPathThenRootPath) {
  MemoryFiles files;
  files.files["top"] = "#include <both>\n#include <root_only>\n#include <none>\n";
  files.files["data/both"] = "from data\n";
  files.files["root/both"] = "from root\n";
  files.files["root/root_only"] = "root only\n";
  const auto out = run(files);
  EXPECT_EQ(out.lines, (Lines{"from data", "root only", ";pp error: #include <none>"}));
  EXPECT_EQ(files.opened, (Lines{"top", "data/both", "data/root_only", "root/root_only",
                                 "data/none", "root/none"}));
}

TEST(PreprocessorInclude, BlockLeftOpenByAnIncludedFileEndsWithIt) {
  MemoryFiles files;
  files.files["top"] =
      "#ifdef __OS__ \n#include inc\nshown\n#else \nhidden\n#endif \nend\n#endif \n";
  files.files["inc"] = "#ifdef NOPE \nskipped\n#ifdef X \n";
  const auto out = run(files);
  // Only the outer block is open after the include, so the last #endif has none.
  EXPECT_EQ(out.lines, (Lines{"shown", "end", ";pp error: #endif"}));
  EXPECT_EQ(out.errors, 1);
}

TEST(PreprocessorInclude, DiskFilesAreReadThroughTheDefaultOpener) {
  const std::string dir = TIDEMARK_FIXTURES "/graphics";
  Preprocessor pp;
  pp.c_pre_proc_init(dir + "/series.dat", dir, "", false, ';');
  const auto out = testing::read_all(pp);
  // series.dat includes <header.inc> from the data path, then "." (a folder, which
  // cannot be opened as a file).
  EXPECT_EQ(out.lines,
            (Lines{"; header", "   10.000   4.523   0.231   2", ";pp error: #include ."}));
}

}  // namespace
}  // namespace tidemark::graphics
