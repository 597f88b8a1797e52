#pragma once
// What the Cosine mode does to the stored series: "Subtract Results" (COSINE_SUBTRACT),
// "Reset Data" (COSINE_RESET) and "Store Data" (COSINE_STORE). Each change of a stored
// series marks its data set modified, so that EXIT warns until it is written.
#include <string>
#include <vector>

#include "data/store.h"
#include "stats/cosine.h"

namespace tidemark::stats {

class CosineSeriesEdits {
 public:
  // Subtracts the model of `values` from the concentrations of data set `index`
  // (nothing with Period <= 0). The first subtraction on a data set keeps its
  // concentrations as they were, for reset().
  void subtract(data::Store& store, int index, const CosineValues& values);

  // Brings back the concentrations kept by the first subtraction on data set `index`;
  // false when there are none (no subtraction on that set, or its length changed).
  // The set stays marked modified when anything changed: a file written since the
  // subtraction holds the subtracted series.
  bool reset(data::Store& store, int index);

  // Appends a copy of the current series, named with "_cos" before the extension and
  // handle + "_cos", marked modified (it is in no file yet); the current data set stays
  // current. Returns the copy's file name.
  static std::string store_copy(data::Store& store);

 private:
  int original_index_ = -1;
  std::vector<float> original_y_;
};

}  // namespace tidemark::stats
