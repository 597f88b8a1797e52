#pragma once
// What a rhythm mode does to the stored series: subtract a fitted curve from the
// concentrations (COSINE_SUBTRACT, PERIODIC_SUBTRACT), bring them back (COSINE_RESET,
// PERIODIC_RESET) and keep the current series as a new data set (COSINE_STORE,
// PERIODIC_STORE). Each change of a stored series marks its data set modified, so that
// EXIT warns until it is written.
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/store.h"

namespace tidemark::stats {

class SeriesEdits {
 public:
  // The kernel's subtraction of a fitted curve from concentrations y at times x.
  using Subtraction = std::function<void(std::span<const float> x, std::span<float> y)>;

  // Applies `subtraction` to the concentrations of data set `index` and marks the set
  // modified. The first subtraction on a data set keeps its concentrations as they
  // were, for reset().
  void subtract(data::Store& store, int index, const Subtraction& subtraction);

  // Brings back the concentrations kept by the first subtraction on data set `index`;
  // false when there are none (no subtraction on that set, or its length changed).
  // The set stays marked modified when anything changed: a file written since the
  // subtraction holds the subtracted series.
  bool reset(data::Store& store, int index);

  // Appends a copy of the current series, named with `suffix` ("_cos") before the
  // extension and handle + suffix, marked modified (it is in no file yet); the current
  // data set stays current. Returns the copy's file name.
  static std::string store_copy(data::Store& store, std::string_view suffix);

 private:
  int original_index_ = -1;
  std::vector<float> original_y_;
};

}  // namespace tidemark::stats
