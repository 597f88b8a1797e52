#include "shell/run_files.h"

#include <gtest/gtest.h>

#include "shell/platform.h"
#include "shell/scratch.h"
#include "shell/text_shape.h"

namespace tidemark::shell {
namespace {

using testing_support::matches_shape;
using testing_support::Scratch;

std::string first_line(const std::filesystem::path& file) {
  const std::string text = Scratch::read(file);
  return text.substr(0, text.find('\n'));
}

// Each run file is its prefix, 20 capital letters without Z, and its extension.
TEST(RunFiles, FiveFilesNamedByPrefixIdentifierAndExtension) {
  Scratch dir;
  core::Random names(7);
  std::string error;
  const auto files = RunFiles::create(dir.path(), names, "Tidemark 0.1.0 2026/01/02 at 03:04:05",
                                      "host Linux Version 6 (Build #1)", error);
  ASSERT_TRUE(files) << error;
  const std::pair<std::filesystem::path, const char*> expected[] = {
      {files->history_path(), "CMD_@@@@@@@@@@@@@@@@@@@@.bat"},
      {files->log_path(), "LOG_@@@@@@@@@@@@@@@@@@@@.log"},
      {files->answers_path(), "BST_@@@@@@@@@@@@@@@@@@@@.BST"},
      {files->graph_path(), "GRF_@@@@@@@@@@@@@@@@@@@@.grf"},
      {files->kill_path(), "KILL_@@@@@@@@@@@@@@@@@@@@.txt"}};
  for (const auto& [path, pattern] : expected) {
    EXPECT_TRUE(matches_shape(path.filename().string(), pattern)) << path;
    EXPECT_TRUE(std::filesystem::exists(path)) << path;
  }
  EXPECT_EQ(first_line(files->history_path()),
            "! command file created by Tidemark 0.1.0 2026/01/02 at 03:04:05");
  EXPECT_EQ(Scratch::read(files->log_path()),
            "! LOG file created by Tidemark 0.1.0 2026/01/02 at 03:04:05\n"
            "!  running on host Linux Version 6 (Build #1)\n");
  EXPECT_EQ(first_line(files->kill_path()),
            "! kill file created by Tidemark 0.1.0 2026/01/02 at 03:04:05");
  EXPECT_EQ(Scratch::read(files->answers_path()), "");
}

TEST(RunFiles, FilesOfTheKillListAreDeletedAndOthersKept) {
  Scratch dir;
  core::Random names(11);
  std::string error;
  auto files = RunFiles::create(dir.path(), names, "x", "y", error);
  ASSERT_TRUE(files);
  const auto listing = dir.write("LIST_A.lst", "listing");
  const auto kept = dir.write("keep.txt", "kept");
  files->kill(listing);
  files->kill(dir / "never_written.fix");
  EXPECT_EQ(files->killed(),
            (std::vector<std::filesystem::path>{listing, dir / "never_written.fix"}));
  files->delete_killed();
  EXPECT_FALSE(std::filesystem::exists(listing));
  EXPECT_TRUE(std::filesystem::exists(kept));
  EXPECT_TRUE(std::filesystem::exists(files->log_path()));
}

TEST(RunFiles, NoRunFilesInAFolderThatDoesNotExist) {
  Scratch dir;
  core::Random names(1);
  std::string error;
  EXPECT_FALSE(RunFiles::create(dir / "missing", names, "x", "y", error));
  EXPECT_NE(error.find("Could not create the run file"), std::string::npos);
}

// "product Version version (Build build)"; date and time with "/" and ":".
TEST(Platform, OperatingSystemAndDateAreWrittenInTheirTextForms) {
  EXPECT_EQ(os_description("Linux", "6.1.0", "#1 SMP"), "Linux Version 6.1.0 (Build #1 SMP)");
  std::tm t{};
  t.tm_year = 2026 - 1900;
  t.tm_mon = 0;
  t.tm_mday = 2;
  t.tm_hour = 3;
  t.tm_min = 4;
  t.tm_sec = 5;
  const Stamp s = stamp(t);
  EXPECT_EQ(created_by({"Tidemark", "0.1.0"}, s), "Tidemark 0.1.0 2026/01/02 at 03:04:05");
}

}  // namespace
}  // namespace tidemark::shell
