#pragma once
// Takes the two series of a two-series mode from the store: the concentrations of each
// chosen data set's crop range, which must have the same length, the same times point
// by point and no missing concentration.
#include <string>
#include <string_view>
#include <vector>

#include "data/store.h"

namespace tidemark::stats {

struct PairedSeries {
  bool ok = false;
  std::vector<std::string> messages;  // the error's lines when not ok
  const data::DataSet* a = nullptr;
  const data::DataSet* b = nullptr;
  std::vector<double> ya, yb;  // the concentrations, widened to double
  std::vector<float> x;        // the common times
  double delta_t = 0;          // x[1] − x[0], 0 for fewer than two points
};

// `a_number` and `b_number` are 1-based data set numbers, as the dialog shows them;
// `mode_title` opens the refusals ("Cross-Correlation" gives "Cross-Correlation
// requires two data sets." and "Therefore, please read another data set." with one set
// loaded, and "Cross-Correlation requires two data sets" + "with equal numbers of data
// points." or "with identical time values!" + "Please select new data sets." for sets
// that do not pair). Fewer than `min_points` points: "Please get more data."
PairedSeries select_paired_series(const data::Store& store, int a_number, int b_number,
                                  std::string_view mode_title, int min_points);

}  // namespace tidemark::stats
