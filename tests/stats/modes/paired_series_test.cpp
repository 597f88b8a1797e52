#include "stats/modes/paired_series.h"

#include <gtest/gtest.h>

#include "core/missing.h"
#include "shell/session_fixture.h"

namespace tidemark::stats {
namespace {

using testing_support::data_set;
using Lines = std::vector<std::string>;

data::Store store_of(std::vector<data::DataSet> sets) {
  data::Store store;
  for (auto& set : sets) store.append(std::move(set));
  return store;
}

TEST(PairedSeries, EachUnusablePairIsRefusedWithItsMessageUnderTheModesTitle) {
  data::DataSet shifted = data_set("b.dat", "B", 5);
  shifted.x()[3] += 1;
  data::DataSet gap = data_set("b.dat", "B", 5);
  gap.y()[2] = core::kMissingF;
  struct Case {
    const char* what;
    std::vector<data::DataSet> sets;
    int b;
    Lines messages;  // with "@" for the mode's title
  };
  const Case cases[] = {
      {"one set",
       {data_set("a.dat", "A", 5)},
       2,
       {"@ requires two data sets.", "Therefore, please read another data set."}},
      {"unequal lengths",
       {data_set("a.dat", "A", 5), data_set("b.dat", "B", 6)},
       2,
       {"@ requires two data sets", "with equal numbers of data points.",
        "Please select new data sets."}},
      {"other times",
       {data_set("a.dat", "A", 5), shifted},
       2,
       {"@ requires two data sets", "with identical time values!", "Please select new data sets."}},
      {"missing value",
       {data_set("a.dat", "A", 5), gap},
       2,
       {"@ requires two data sets", "without missing concentrations.",
        "Please select new data sets."}},
      {"two points",
       {data_set("a.dat", "A", 2), data_set("b.dat", "B", 2)},
       2,
       {"Please get more data."}},
      {"no such set",
       {data_set("a.dat", "A", 5), data_set("b.dat", "B", 5)},
       3,
       {"There is no data set 3: choose 1 to 2."}},
  };
  for (const std::string title : {"Cross-ApEn", "Cross-Correlation"}) {
    for (const Case& c : cases) {
      const data::Store store = store_of(c.sets);
      const PairedSeries s = select_paired_series(store, 1, c.b, title, 3);
      Lines expected = c.messages;
      for (std::string& line : expected)
        if (line[0] == '@') line.replace(0, 1, title);
      EXPECT_FALSE(s.ok()) << title << ": " << c.what;
      EXPECT_EQ(s.messages, expected) << title << ": " << c.what;
    }
  }
}

TEST(PairedSeries, TakesTheCropRangesWithMissingErrorsAsZero) {
  // data_set gives times 0, 10, 20, ..., concentrations 1, 2, 3, ... and errors 0.1.
  data::DataSet a = data_set("a.dat", "A", 6), b = data_set("b.dat", "B", 4);
  a.crop_start = 3;
  a.crop_end = 6;
  b.x() = {20, 30, 40, 50};
  b.dy()[1] = core::kMissingF;
  const data::Store store = store_of({a, b});
  const PairedSeries s = select_paired_series(store, 1, 2, "Cross-Correlation", 4);
  ASSERT_TRUE(s.ok()) << testing::PrintToString(s.messages);
  EXPECT_EQ(s.ya, (std::vector<float>{3, 4, 5, 6}));
  EXPECT_EQ(s.yb, (std::vector<float>{1, 2, 3, 4}));
  EXPECT_EQ(s.sa, (std::vector<float>{0.1f, 0.1f, 0.1f, 0.1f}));
  EXPECT_EQ(s.sb, (std::vector<float>{0.1f, 0, 0.1f, 0.1f}));
  EXPECT_EQ(s.delta_t, 10.0);
  EXPECT_EQ(s.a, &store.at(0));
  EXPECT_EQ(s.b, &store.at(1));
}

}  // namespace
}  // namespace tidemark::stats
