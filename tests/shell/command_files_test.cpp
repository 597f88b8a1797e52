#include "shell/command_files.h"

#include <gtest/gtest.h>

#include "shell/scratch.h"

namespace tidemark::shell {
namespace {

using testing_support::Scratch;

TEST(CommandFiles, CommentsAndBlankLinesAreSkippedAndTheEnclosingFileGoesOn) {
  Scratch dir;
  const auto outer = dir.write("outer.cmd", "! comment\nFIRST\n\nLAST\n");
  const auto inner = dir.write("inner.cmd", "INNER\r\n");
  CommandFiles files;
  ASSERT_TRUE(files.open(outer.string()));
  EXPECT_EQ(files.next(), "FIRST");
  ASSERT_TRUE(files.open(inner.string()));
  EXPECT_EQ(files.depth(), 2);
  EXPECT_EQ(files.next(), "INNER");
  EXPECT_EQ(files.next(), "LAST");
  EXPECT_EQ(files.next(), std::nullopt);
  EXPECT_EQ(files.depth(), 0);
}

// Ten files nest, each on the next free unit from 8 upward; the eleventh is refused and
// the ten stay open.
TEST(CommandFiles, TheEleventhNestedFileIsRefused) {
  Scratch dir;
  const auto file = dir.write("loop.cmd", "X\n");
  CommandFiles files;
  for (int i = 0; i < 10; ++i) {
    ASSERT_TRUE(files.open(file.string())) << i;
    EXPECT_EQ(files.unit(), 8 + i);
  }
  EXPECT_FALSE(files.open(file.string()));
  EXPECT_EQ(files.depth(), 10);
}

TEST(CommandFiles, AClosedFileFreesItsUnitForTheNext) {
  Scratch dir;
  const auto a = dir.write("a.cmd", "A\n");
  const auto b = dir.write("b.cmd", "B\n");
  CommandFiles files;
  ASSERT_TRUE(files.open(a.string()));
  EXPECT_EQ(files.next(), "A");
  EXPECT_EQ(files.next(), std::nullopt);
  ASSERT_TRUE(files.open(b.string()));
  EXPECT_EQ(files.unit(), 8);
}

TEST(CommandFiles, BlankMissingFolderAndDeviceNamesAreRefused) {
  Scratch dir;
  CommandFiles files;
  for (const std::string& name :
       {std::string("  "), (dir / "missing.cmd").string(), dir.path().string()}) {
    EXPECT_FALSE(files.open(name)) << name;
  }
  EXPECT_EQ(files.depth(), 0);
}

}  // namespace
}  // namespace tidemark::shell
