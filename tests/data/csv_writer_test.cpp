#include "data/csv_writer.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cfloat>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <string>

#include "ui/console_ui.h"

namespace tidemark::data {
namespace {

constexpr float M = core::kMissingF;

// Expected text by hand: blank headers take their default names, cells with a comma or
// a quote are quoted with quotes doubled, missing and NaN are empty cells, and numbers
// are the shortest decimals that give the same float (checked with Python: the first
// "%.{p}g" whose float32 equals the value).
TEST(CsvWriter, WritesHeadersAndPointsWithEmptyCellsForMissingValues) {
  DataSet set;
  set.headers[kX] = "Time (min)";
  set.headers[kDY] = "SEM, pooled";
  set.headers[kReps] = "say \"n\"";
  set.headers[kFx4] = " padded";
  set.push_point({0, 2.049f, 0.1f, 2, M, M, M, M});
  set.push_point({10, -0.5f, M, 1, std::numeric_limits<float>::quiet_NaN(), 0, M, 123456.7f});
  EXPECT_EQ(csv_text(set),
            "Time (min),CONC,\"SEM, pooled\",\"say \"\"n\"\"\",FX1,FX2,FX3,\" padded\"\n"
            "0,2.049,0.1,2,,,,\n"
            "10,-0.5,,1,,0,,123456.7\n");
}

// Extremes of single precision (values below -9.9E34 are missing, so none of those).
TEST(CsvWriter, EveryNumberReadsBackAsTheSameFloat) {
  const float awkward[] = {FLT_MAX, FLT_MIN,   FLT_TRUE_MIN, 16777217.0f, 0.3f,      1e-5f,
                           1e6f,    100000.0f, -9.8e34f,     3.14159274f, 2.718282f, 1.17549e-38f};
  DataSet set;
  for (float v : awkward) set.push_point({v, v, v, v, v, v, v, v});
  const std::string text = csv_text(set);
  const char* p = text.c_str() + text.find('\n') + 1;
  for (float v : awkward) {
    for (int c = 0; c < kColumnCount; ++c) {
      char* end = nullptr;
      EXPECT_EQ(std::strtof(p, &end), v) << text;
      p = end + 1;  // past the comma or line end
    }
  }
}

TEST(CsvWriter, FileWriteIsLoggedAndAFailedWriteKeepsTheTarget) {
  const auto dir = std::filesystem::temp_directory_path() /
                   ("tidemark_csv_writer_" + std::to_string(::getpid()));
  std::filesystem::create_directories(dir / "taken.csv");
  DataSet set;
  set.push_point({1, 2, 3, 4, 5, 6, 7, 8});
  ui::RecordingUi ui;
  ui::MemoryLog log;
  EXPECT_TRUE(write_csv(set, (dir / "out.csv").string(), ui, log));
  std::ifstream in(dir / "out.csv");
  const std::string written{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  EXPECT_FALSE(write_csv(set, (dir / "taken.csv").string(), ui, log));
  const bool still_folder = std::filesystem::is_directory(dir / "taken.csv");
  std::filesystem::remove_all(dir);
  EXPECT_EQ(written, csv_text(set));
  EXPECT_TRUE(still_folder);
  EXPECT_EQ(log.lines().front(), "WRITE CSV MODE FILE");
  ASSERT_EQ(ui.boxes().size(), 1u);
  EXPECT_EQ(ui.boxes()[0].title, "ERROR WRITING DATA FILE");
}

}  // namespace
}  // namespace tidemark::data
