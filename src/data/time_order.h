#pragma once
// Putting the points of a data set in time order.
#include "data/dataset.h"

namespace tidemark::data {

// Sorts the points by time when the times are not ascending (equal neighbours count as
// ascending), moving all eight columns of a point together; points with equal times keep
// their order. A time that is not a number sorts lowest, like a missing time (-1.E35).
// Returns true when the points were reordered.
bool sort_by_time(DataSet& set);

}  // namespace tidemark::data
