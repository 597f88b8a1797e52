#pragma once
// The data conditioner: checks and regularises the current data set before a time-series
// analysis runs on it.
#include <string>
#include <string_view>

#include "data/dataset.h"
#include "ui/ui.h"

namespace tidemark::data {

// Title of the message box of every serious error.
inline constexpr std::string_view kSeriousErrorTitle = "Serious error in data set";
// Title of the constant-coefficient-of-variation warning.
inline constexpr std::string_view kBadVarianceTitle = "Bad Variance Model";

// Whether the calling analysis may run: the set conditioned, or refused for a serious
// error. On refusal `message` is the first line of the serious error that was shown and
// logged.
enum class ConditionStatus { kConditioned, kSeriousError };

struct ConditionResult {
  ConditionStatus status = ConditionStatus::kConditioned;
  std::string message;

  bool ok() const { return status == ConditionStatus::kConditioned; }
};

// Conditions `set` in place, in this order:
//   1. blank headers of X, Y, DY, REPS become "TIME", "CONC", "SEM", "REPS";
//   2. every point with a concentration must have DY > 1.0E-5 * Y (serious error);
//   3. points not in ascending time order are sorted, all columns together;
//   4. over the crop range the increments must be regular: minimal increment not zero and
//      not below 1.0E-5 * the largest, median not below it, median / minimal <= 1.02;
//   5. gaps of two and three median increments get one or two inserted points; any other
//      gap is a serious error;
//   6. more than three valid points (REPS not 0, Y > 0) must remain in the crop range;
//   7. a constant coefficient of variation is warned about unless `quiet`;
//   8. integer slots 1..4 below -1000 become 0, 4, 0, 5.
// Every log line begins "DATA_CONDITIONER: ". A serious error is shown through `ui`,
// logged, and ends the conditioning; the record keeps what was changed before it.
// A missing concentration is not checked in step 2; a missing or infinite time inside the
// crop range is a serious error before step 4.
ConditionResult condition(DataSet& set, bool quiet, ui::Ui& ui, ui::LogSink& log);

}  // namespace tidemark::data
