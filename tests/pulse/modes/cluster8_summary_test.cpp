// Cluster8's columns of the summary books: their letters (counted by hand: AQ is column
// 43, BM column 65) and titles, and empty cells for statistics a run could not compute.
#include "pulse/modes/cluster8_summary.h"

#include <gtest/gtest.h>

#include "data/summary_book.h"

namespace tidemark::pulse {
namespace {

TEST(Cluster8Summary, FillsAqToBmWithCountsAndPeakAndValleyStatistics) {
  Cluster8Result r;
  r.peaks.resize(3);
  r.valleys.resize(2);
  r.total_area = 120.5f;
  r.peak_summary = Cluster8PeakSummary{};
  r.peak_summary->interval = Cluster8Summary{95.0f, 12.5f};
  r.peak_summary->increase = Cluster8Summary{4.0f, 0.5f};
  r.valley_summary = Cluster8ValleySummary{};
  r.valley_summary->nadir = Cluster8Summary{1.75f, 0.25f};
  data::SummaryRow row;
  put_cluster8_summary(row, r);
  ASSERT_EQ(row.size(), 23u);
  EXPECT_EQ(row.begin()->first, "AQ");
  EXPECT_EQ(row.rbegin()->first, "BM");
  const auto cell = [&](const char* letters) { return row.at(letters); };
  EXPECT_EQ(cell("AQ"), (data::SummaryCell{"Cluster8 # Peaks", 3}));
  EXPECT_EQ(cell("AR"), (data::SummaryCell{"Cluster8 # Valleys", 2}));
  EXPECT_EQ(cell("AS"), (data::SummaryCell{"Cluster8 Total Area", 120.5f}));
  EXPECT_EQ(cell("AT"), (data::SummaryCell{"Cluster8 Peak Interval", 95.0f}));
  EXPECT_EQ(cell("AU"), (data::SummaryCell{"Cluster8 Peak Interval SD", 12.5f}));
  EXPECT_EQ(cell("BF"), (data::SummaryCell{"Cluster8 Peak Increase Above Basal", 4.0f}));
  EXPECT_EQ(cell("BG"), (data::SummaryCell{"Cluster8 Peak Increase Above Basal SD", 0.5f}));
  EXPECT_EQ(cell("BL"), (data::SummaryCell{"Cluster8 Valley Nadir", 1.75f}));
  EXPECT_EQ(cell("BM"), (data::SummaryCell{"Cluster8 Valley Nadir SD", 0.25f}));
  // Statistics the run did not compute are missing: empty cells in the book.
  EXPECT_TRUE(core::is_missing(cell("AV").value));
  EXPECT_TRUE(core::is_missing(cell("BH").value));
}

TEST(Cluster8Summary, ARunWithoutPeaksLeavesItsStatisticsEmptyInTheBook) {
  data::Store store;
  data::DataSet set;
  set.file_name = "flat.dat";
  put_cluster8_summary(set.summary, Cluster8Result{});
  store.append(set);
  const std::string book = data::summary_book_text(store);
  const std::string row = book.substr(book.find('\n') + 1);
  // File name, 41 empty cells (B to AP), then 0 peaks, 0 valleys, area 0, 20 empty cells.
  EXPECT_EQ(row, "flat.dat" + std::string(41, ',') + ",0,0,0" + std::string(20, ',') + "\n");
}

}  // namespace
}  // namespace tidemark::pulse
