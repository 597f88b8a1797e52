#include "shell/registry.h"

#include <gtest/gtest.h>

#include "shell/scratch.h"

namespace tidemark::shell {
namespace {

using testing_support::Scratch;

TEST(Registry, EntriesSurviveAWriteAndAReadWithKeysInAnyLetterCase) {
  Scratch dir;
  Registry written;
  written.set("Default_Folder", "/data/lh series");
  written.set("Printer", "office");
  written.set("DEFAULT_FOLDER", "/data/gh");  // the same key: replaces the value
  ASSERT_TRUE(written.save(dir / "registry.ini"));
  Registry read;
  ASSERT_EQ(read.load(dir / "registry.ini"), Registry::Load::kRead);
  EXPECT_EQ(read.get("default_folder"), "/data/gh");
  EXPECT_EQ(read.get("Printer"), "office");
  EXPECT_EQ(read.get("Missing"), std::nullopt);
}

TEST(Registry, CommentsAndLinesWithoutAnEqualsSignAreSkipped) {
  Scratch dir;
  dir.write("registry.ini", "; comment\n! also=comment\nno equals sign\n  Key =  value  \n");
  Registry r;
  ASSERT_EQ(r.load(dir / "registry.ini"), Registry::Load::kRead);
  EXPECT_EQ(r.get("Key"), "value");
  EXPECT_EQ(r.get("! also"), std::nullopt);
}

TEST(Registry, AMissingFileAndAnUnreadableOneAreToldApart) {
  Scratch dir;
  Registry r;
  EXPECT_EQ(r.load(dir / "none.ini"), Registry::Load::kMissing);
  std::filesystem::create_directory(dir / "folder.ini");
  EXPECT_EQ(r.load(dir / "folder.ini"), Registry::Load::kUnreadable);
  EXPECT_FALSE(r.save(dir / "no such folder" / "registry.ini"));
}

}  // namespace
}  // namespace tidemark::shell
