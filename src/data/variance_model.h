#pragma once
// The valid points of a series and the test for a constant coefficient of variation.
#include "data/dataset.h"

namespace tidemark::data {

// A point is valid when its replicate count is not 0 and its concentration is positive
// (a missing concentration is not positive; a missing replicate count is not 0).
inline bool is_valid_point(float y, float reps) {
  return reps != 0 && y > 0;
}

// Number of valid points among points first..last (1-based, inclusive).
int valid_point_count(const DataSet& set, int first, int last);

// True when the valid points among first..last (1-based, inclusive) have a constant
// coefficient of variation: with r = DY / Y over the n valid points,
//   1000 * sd(r) < |mean(r)|,  sd(r)^2 = sum (r - mean(r))^2 / (n - 1),
// formed in double precision. Fewer than two valid points have no spread to measure:
// false. Ratios that are not finite make the comparison false.
bool has_constant_cv(const DataSet& set, int first, int last);

}  // namespace tidemark::data
