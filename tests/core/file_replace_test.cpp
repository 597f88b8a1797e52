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
  // A fresh folder per process and test: other builds may run this suite at once.
  void SetUp() override {
    const std::string test = ::testing::UnitTest::GetInstance()->current_test_info()->name();
    dir_ = fs::temp_directory_path() / ("tidemark_replace_" + std::to_string(::getpid()) + test);
    fs::create_directories(dir_);
  }
  void TearDown() override { fs::remove_all(dir_); }

  static std::string contents(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  // Entries in the folder: a finished or failed write leaves no temporary file.
  int entries() const {
    return int(std::distance(fs::directory_iterator(dir_), fs::directory_iterator()));
  }

  fs::path dir_;
};

TEST_F(FileReplace, ReplacesTheWholeFileWithTheExactBytes) {
  std::ofstream(dir_ / "a.dat") << "a much longer old text that must not survive in part\n";
  const std::string text("line 1\r\nNUL \0 here\n", 19);
  const auto r = replace_file(dir_ / "a.dat", text);
  EXPECT_TRUE(r.ok() && r.message.empty()) << r.message;
  EXPECT_EQ(contents(dir_ / "a.dat"), text);
  EXPECT_EQ(entries(), 1);
}

TEST_F(FileReplace, TargetThatIsAFolderOrInNoFolderIsRefused) {
  fs::create_directory(dir_ / "folder.dat");
  std::ofstream(dir_ / "folder.dat" / "inside") << "kept";
  const auto r = replace_file(dir_ / "folder.dat", "text");
  EXPECT_FALSE(r.ok());
  EXPECT_NE(r.message.find("folder.dat"), std::string::npos) << r.message;
  EXPECT_EQ(contents(dir_ / "folder.dat" / "inside"), "kept");
  EXPECT_FALSE(replace_file(dir_ / "no_such_folder" / "x.dat", "text").ok());
  EXPECT_EQ(entries(), 1);
}

// A 240-character name is valid, but the temporary name built from it exceeds the
// 255-character limit, so the write fails before the old file is touched (permissions
// cannot make it fail: tests may run as root).
TEST_F(FileReplace, FailedWriteLeavesTheOldFileWhole) {
  const fs::path target = dir_ / (std::string(236, 'a') + ".dat");
  std::ofstream(target) << "old contents\n";
  EXPECT_FALSE(replace_file(target, "new contents\n").ok());
  EXPECT_EQ(contents(target), "old contents\n");
  EXPECT_EQ(entries(), 1);
}

}  // namespace
}  // namespace tidemark::core
