#include "data/csv_writer.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <limits>
#include <string>

#include "ui/console_ui.h"

namespace tidemark::data {
namespace {

constexpr float M = core::kMissingF;

// Expected text by hand: blank headers take their default names, cells with a comma, a
// quote or an outer blank are quoted with quotes doubled, missing and NaN are empty
// cells, and numbers are the shortest decimals that give the same float (checked with
// Python: the first "%.{p}g" whose float32 equals the value).
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

TEST(CsvWriter, FailedWriteIsReportedAndKeepsTheTarget) {
  const auto dir = std::filesystem::temp_directory_path() /
                   ("tidemark_csv_writer_" + std::to_string(::getpid()));
  std::filesystem::create_directories(dir / "taken.csv");
  DataSet set;
  set.push_point({1, 2, 3, 4, 5, 6, 7, 8});
  ui::RecordingUi ui;
  ui::MemoryLog log;
  const bool written = write_csv(set, (dir / "out.csv").string(), ui, log);
  const bool refused = !write_csv(set, (dir / "taken.csv").string(), ui, log);
  const bool kept = std::filesystem::is_directory(dir / "taken.csv");
  std::filesystem::remove_all(dir);
  EXPECT_TRUE(written && refused && kept);
  EXPECT_EQ(log.lines().front(), "WRITE CSV MODE FILE");
  ASSERT_EQ(ui.boxes().size(), 1u);
  EXPECT_EQ(ui.boxes()[0].title, "ERROR WRITING DATA FILE");
}

}  // namespace
}  // namespace tidemark::data
