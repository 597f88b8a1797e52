#pragma once
// A small data set for the spreadsheet's tests: row i (1-based) has TIME 10(i-1), Y i,
// SEM 0.1, REPS 2 and FX1 i/10; FX2..FX4 are missing.
#include "core/missing.h"
#include "data/dataset.h"

namespace tidemark::formula::testing {

inline data::DataSet series(int rows) {
  data::DataSet set;
  set.file_name = "series.dat";
  set.headers[data::kX] = "TIME";
  set.headers[data::kY] = "Y";
  for (int i = 1; i <= rows; ++i) {
    const auto v = static_cast<float>(i);
    set.push_point(
        {10 * (v - 1), v, 0.1f, 2.0f, v / 10, core::kMissingF, core::kMissingF, core::kMissingF});
  }
  return set;
}

}  // namespace tidemark::formula::testing
