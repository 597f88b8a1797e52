#include "core/file_replace.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tidemark::core {
namespace {

namespace fs = std::filesystem;

class FileReplace : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() /
           ("tidemark_file_replace_" +
            std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::remove_all(dir_);
    fs::create_directories(dir_);
  }
  void TearDown() override { fs::remove_all(dir_); }

  static std::string contents(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  static void put(const fs::path& p, const std::string& text) {
    std::ofstream(p, std::ios::binary) << text;
  }
  // Number of entries in the test folder: a failed or finished write leaves no
  // temporary file behind.
  int entries() const {
    return static_cast<int>(std::distance(fs::directory_iterator(dir_), fs::directory_iterator()));
  }

  fs::path dir_;
};

TEST_F(FileReplace, WritesTheBytesExactlyAndLeavesNothingElse) {
  const std::string text("line 1\r\nNUL \0 here\n", 19);
  const auto r = replace_file(dir_ / "new.dat", text);
  EXPECT_TRUE(r.ok) << r.message;
  EXPECT_TRUE(r.message.empty());
  EXPECT_EQ(contents(dir_ / "new.dat"), text);
  EXPECT_EQ(entries(), 1);
}

TEST_F(FileReplace, ReplacesAnExistingFileWhole) {
  put(dir_ / "old.dat", "a much longer old text that must not survive in part\n");
  ASSERT_TRUE(replace_file(dir_ / "old.dat", "short\n").ok);
  EXPECT_EQ(contents(dir_ / "old.dat"), "short\n");
  EXPECT_EQ(entries(), 1);
}

TEST_F(FileReplace, TargetThatIsAFolderIsRefusedAndKept) {
  fs::create_directory(dir_ / "folder.dat");
  put(dir_ / "folder.dat" / "inside", "kept");
  const auto r = replace_file(dir_ / "folder.dat", "text");
  EXPECT_FALSE(r.ok);
  EXPECT_NE(r.message.find("folder.dat"), std::string::npos) << r.message;
  EXPECT_EQ(contents(dir_ / "folder.dat" / "inside"), "kept");
  EXPECT_EQ(entries(), 1);
}

TEST_F(FileReplace, MissingFolderIsRefused) {
  const auto r = replace_file(dir_ / "no_such_folder" / "x.dat", "text");
  EXPECT_FALSE(r.ok);
  EXPECT_FALSE(r.message.empty());
  EXPECT_EQ(entries(), 0);
}

// A name of 240 characters is a valid file name, but the temporary name built from it
// exceeds the 255-character limit of the file system, so the write fails before the
// old file is touched (file permissions cannot be used: tests may run as root).
TEST_F(FileReplace, FailedWriteLeavesTheOldFileWhole) {
  const fs::path target = dir_ / (std::string(236, 'a') + ".dat");
  put(target, "old contents\n");
  const auto r = replace_file(target, "new contents\n");
  EXPECT_FALSE(r.ok);
  EXPECT_EQ(contents(target), "old contents\n");
  EXPECT_EQ(entries(), 1);
}

}  // namespace
}  // namespace tidemark::core
