#pragma once
// Repair of single and double gaps in a regularly sampled series.
#include <span>
#include <vector>

#include "data/dataset.h"

namespace tidemark::data {

// Points to insert after one point: 1 fills a double-length gap, 2 a triple-length one.
struct Insertion {
  int after = 0;  // 0-based index of the point before the gap
  int count = 0;
};

struct GapPlan {
  std::vector<Insertion> insertions;  // in increasing order of `after`
  int irregular = -1;  // 0-based index of the point ending the first irregular gap, or -1
};

// Points missing in a gap of g = (t(i) - t(i-1)) / median median increments, the bounds
// strict on both sides: 0 for 0.98 < g < 1.02, 1 for 1.96 < g < 2.04, 2 for
// 2.94 < g < 3.06, and -1 (irregular) for any other g, NaN included.
int missing_points(double g);

// Walks the gaps of times[first..last] (0-based, inclusive) and lists the insertions up
// to the first irregular gap. g is formed in double precision from the stored times, so
// a gap of exactly 1.02 median increments is recognised as such.
GapPlan plan_gaps(std::span<const float> times, int first, int last, double median);

// Inserts the planned points, moving later points up. Each inserted point blends its
// neighbours p (before) and n (after) with weights (wp, wn): (1, 1) for a single point,
// (2, 1) then (1, 2) for two:
//   time, Y = (wp * v(p) + wn * v(n)) * (1 / (wp + wn))   (0.5, or one third)
//   DY      =  wp * DY(p) + wn * DY(n)                      (a sum: larger than either)
//   REPS    = 0 (not measured), FX1..FX4 missing (nothing to carry over).
// A value blended from a missing neighbour value is missing. The arithmetic is double,
// rounded once to single precision, so no intermediate sum can overflow.
void fill_gaps(DataSet& set, std::span<const Insertion> insertions);

}  // namespace tidemark::data
