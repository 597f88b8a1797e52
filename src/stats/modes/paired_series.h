#pragma once
// Takes the two series of a two-series mode (Correlation, X_ApEn) from the store: the
// concentrations and standard errors of each chosen data set's crop range, which must
// have the same length, the same times point by point and no missing concentration.
#include <string>
#include <string_view>
#include <vector>

#include "data/store.h"
#include "ui/log_sink.h"
#include "ui/ui.h"

namespace tidemark::stats {

enum class PairedSeriesStatus { kRefused, kPaired };

struct PairedSeries {
  PairedSeriesStatus status = PairedSeriesStatus::kRefused;
  std::vector<std::string> messages;  // the error's lines when not ok()
  const data::DataSet* a = nullptr;
  const data::DataSet* b = nullptr;
  std::vector<float> ya, yb;  // the concentrations
  std::vector<float> sa, sb;  // their standard errors, a missing one taken as 0
  double delta_t = 0;         // the spacing of the first two common times, 0 for one point

  bool ok() const { return status == PairedSeriesStatus::kPaired; }
};

// `a_number` and `b_number` are 1-based data set numbers, as the dialog shows them;
// `mode_title` opens the refusals ("Cross-Correlation" gives "Cross-Correlation
// requires two data sets." and "Therefore, please read another data set." with one set
// loaded, and "Cross-Correlation requires two data sets" + "with equal numbers of data
// points.", "with identical time values!" or "without missing concentrations." +
// "Please select new data sets." for sets that do not pair). A number that names no
// set: "There is no data set n: choose 1 to m.". Fewer than `min_points` points:
// "Please get more data."
// Passes the data sets numbered `a_number` and `b_number` through the data conditioner
// (inserted points and sorting stay in the stored sets), as every mode that reads a
// series does. The refusal's line when either does not pass ("Data set 2 (b.dat) did
// not pass the data conditioner."); empty when both pass, or when fewer than two sets
// are loaded or a number names no set, which the pairing's refusal then reports.
std::vector<std::string> condition_pair(data::Store& store, int a_number, int b_number,
                                        ui::Ui& ui, ui::LogSink& log);

PairedSeries select_paired_series(const data::Store& store, int a_number, int b_number,
                                  std::string_view mode_title, int min_points);

}  // namespace tidemark::stats
