#include "data/store.h"

#include <gtest/gtest.h>

namespace tidemark::data {
namespace {

DataSet series(int points) {
  DataSet set;
  for (int i = 0; i < points; ++i) set.push_point({float(i), 1, 0.1f, 2, 0, 0, 0, 0});
  return set;
}

TEST(Store, AppendMakesTheNewSetCurrentAndResetEmpties) {
  Store store;
  EXPECT_TRUE(store.empty());
  store.append(series(3));
  store.append(series(5));
  EXPECT_EQ(store.count(), 2);
  EXPECT_EQ(store.current().size(), 5);
  EXPECT_TRUE(store.select(0));
  EXPECT_EQ(store.current().size(), 3);
  EXPECT_FALSE(store.select(2));
  EXPECT_EQ(store.current_index(), 0);
  store.reset();
  EXPECT_EQ(store.count(), 0);
}

TEST(DataSet, CropRangeFallsBackToAllPoints) {
  struct Case { int start, end, first, last; };
  const Case cases[] = {
      {core::kMissingInt, core::kMissingInt, 1, 10},
      {3, 7, 3, 7},
      {0, 99, 1, 10},   // out of range on both sides
      {8, 4, 8, 10},    // end before start
  };
  for (const auto& c : cases) {
    DataSet set = series(10);
    set.crop_start = c.start;
    set.crop_end = c.end;
    EXPECT_EQ(set.first_point(), c.first) << c.start << ".." << c.end;
    EXPECT_EQ(set.last_point(), c.last) << c.start << ".." << c.end;
  }
}

TEST(DataSet, NewRecordHasEverySlotMissing) {
  const DataSet set;
  for (double a : set.answers) EXPECT_TRUE(core::is_missing(a));
  for (float r : set.reals) EXPECT_TRUE(core::is_missing(r));
  for (int i : set.integers) EXPECT_TRUE(core::is_missing_int(i));
}

}  // namespace
}  // namespace tidemark::data
