#include "shell/folders.h"

#include <gtest/gtest.h>

#include "shell/scratch.h"

namespace tidemark::shell {
namespace {

using testing_support::Scratch;

// The program folder: $TIDEMARK_HOME, else $XDG_DATA_HOME/tidemark, else
// ~/.local/share/tidemark; an empty variable counts as unset.
TEST(Folders, HomeComesFromTheFirstVariableThatIsSet) {
  EXPECT_EQ(home_folder("/t", "/x", "/h"), std::filesystem::path("/t"));
  EXPECT_EQ(home_folder("", "/x", "/h"), std::filesystem::path("/x/tidemark"));
  EXPECT_EQ(home_folder(nullptr, nullptr, "/h"), std::filesystem::path("/h/.local/share/tidemark"));
  EXPECT_EQ(home_folder(nullptr, "", ""), std::nullopt);
}

TEST(Folders, TheThreeSubfoldersAreCreatedOnFirstStart) {
  Scratch dir;
  std::string error;
  const auto folders = prepare_folders(dir / "home", error);
  ASSERT_TRUE(folders) << error;
  for (const char* sub : {"system", "temp", "help"}) {
    EXPECT_TRUE(std::filesystem::is_directory(dir / "home" / sub)) << sub;
  }
  EXPECT_EQ(folders->temp, dir / "home" / "temp");
}

// The run goes on in other working folders (CD), so the folders must not be relative.
TEST(Folders, ARelativeHomeComesBackAbsolute) {
  Scratch dir;
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(dir.path());
  std::string error;
  const auto folders = prepare_folders("rel", error);
  std::filesystem::current_path(before);
  ASSERT_TRUE(folders) << error;
  EXPECT_EQ(folders->temp, dir / "rel" / "temp");
}

TEST(Folders, AHomeThatIsAFileCannotBePrepared) {
  Scratch dir;
  const auto file = dir.write("home", "not a folder");
  std::string error;
  EXPECT_FALSE(prepare_folders(file, error));
  EXPECT_NE(error.find("Could not create the folder"), std::string::npos);
}

}  // namespace
}  // namespace tidemark::shell
