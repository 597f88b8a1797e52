#pragma once
// Checks the two data sets chosen for X_ApEn and takes their series: the concentrations
// and standard errors of each set's crop range, which must have the same length, the
// same times point by point, no missing concentration and at least kXApEnMinPoints
// points. A missing standard error is taken as 0.
#include <string>
#include <vector>

#include "data/store.h"

namespace tidemark::stats {

struct XApEnSelection {
  bool ok = false;
  std::vector<std::string> messages;  // the error's lines when not ok
  const data::DataSet* a = nullptr;
  const data::DataSet* b = nullptr;
  std::vector<float> ya, sa, yb, sb;
};

// `a_number` and `b_number` are 1-based data set numbers, as the dialog shows them.
XApEnSelection select_xapen_series(const data::Store& store, int a_number, int b_number);

}  // namespace tidemark::stats
