#pragma once
// The data set record: one hormone series with its columns, labels and result slots.
#include <array>
#include <string>
#include <vector>

#include "core/missing.h"
#include "data/summary_row.h"

namespace tidemark::data {

namespace detail {
template <typename T, int N>
constexpr std::array<T, N> filled(T v) {
  std::array<T, N> a{};
  a.fill(v);
  return a;
}
}  // namespace detail

// A secretion event: the time of its secretion maximum and log10 of its height.
struct SecretionEvent {
  double position = 0;    // time of the event
  double log_height = 0;  // log10 of its height
  bool operator==(const SecretionEvent&) const = default;
};

// The model a simulated set was made from: its parameters (the order of answers 1..8,
// missing beyond its half-lives) and its events. The answers slots hold the same at first,
// but every pulse analysis writes what it found there; this copy stays, so a result can
// always be judged against the truth. Empty for measured data; not written to files.
struct SimulatedTruth {
  std::vector<double> parameters;
  std::vector<SecretionEvent> events;
  bool known() const { return !parameters.empty(); }
  bool operator==(const SimulatedTruth&) const = default;
};

// The eight point columns, in the order of a data line (FX4 last).
enum Column : int { kX = 0, kY, kDY, kReps, kFx1, kFx2, kFx3, kFx4, kColumnCount };

inline constexpr int kAnswerCount = 200;
inline constexpr int kRealCount = 35;
inline constexpr int kIntegerCount = 9;
inline constexpr int kStringCount = 3;

struct DataSet {
  std::string file_name;  // from !FILENAME, else the name of the file read
  std::string handle;     // short label shown in graphs
  int ds_type = core::kMissingInt;
  // First and last point to use, 1-based; missing means the first / last point.
  int crop_start = core::kMissingInt;
  int crop_end = core::kMissingInt;
  std::string file_type;
  std::string file_subtype;
  int nx = 1;
  int ny = 1;

  // Per-point columns, all the same length: times, concentrations, their standard
  // deviations, replicate counts, and four further columns. Stored single precision.
  std::array<std::vector<float>, kColumnCount> columns;
  // Column headers, in Column order (!header_x ... !header_fx4).
  std::array<std::string, kColumnCount> headers;

  // Result slots. Index 0 here is slot 1 of the file (!ANSWER(1) is answers[0]).
  std::array<double, kAnswerCount> answers = detail::filled<double, kAnswerCount>(core::kMissing);
  std::array<float, kRealCount> reals = detail::filled<float, kRealCount>(core::kMissingF);
  std::array<int, kIntegerCount> integers = detail::filled<int, kIntegerCount>(core::kMissingInt);
  std::array<std::string, kStringCount> strings;
  // The model of a simulated set (SIMULATE); empty otherwise.
  SimulatedTruth truth;
  // This set's row of the summary books, filled by the analyses that ran on it.
  SummaryRow summary;

  // True when this run changed the stored series (the spreadsheet's accepted changes,
  // Cosine's subtraction and reset) or made the set (Cosine's stored copy) since it was
  // last read or written with WRITE_NATIVE: EXIT warns about such sets.
  bool modified = false;

  int size() const { return static_cast<int>(columns[kX].size()); }
  // The header of the concentration column as graphs label their y axis: the header
  // read ("LH"), else "CONC", the data conditioner's default.
  std::string concentration_header() const {
    return headers[kY].empty() ? std::string("CONC") : headers[kY];
  }
  std::vector<float>& x() { return columns[kX]; }
  std::vector<float>& y() { return columns[kY]; }
  std::vector<float>& dy() { return columns[kDY]; }
  std::vector<float>& reps() { return columns[kReps]; }
  const std::vector<float>& x() const { return columns[kX]; }
  const std::vector<float>& y() const { return columns[kY]; }
  const std::vector<float>& dy() const { return columns[kDY]; }
  const std::vector<float>& reps() const { return columns[kReps]; }

  // The crop range resolved against the points held: 1-based, first <= last when the
  // set is not empty. A missing or out-of-range crop start is 1, a missing or
  // out-of-range crop end is size().
  int first_point() const;
  int last_point() const;

  // Appends one point; `values` in Column order.
  void push_point(const std::array<float, kColumnCount>& values);

  bool operator==(const DataSet&) const = default;
};

}  // namespace tidemark::data
