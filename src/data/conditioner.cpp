#include "data/conditioner.h"

#include <fmt/format.h>

#include <cmath>
#include <optional>
#include <span>
#include <vector>

#include "core/fortran_format.h"
#include "core/missing.h"
#include "core/text.h"
#include "data/gap_filler.h"
#include "data/time_increments.h"
#include "data/time_order.h"
#include "data/variance_model.h"

namespace tidemark::data {
namespace {

constexpr std::string_view kLogPrefix = "DATA_CONDITIONER: ";

// Defaults of the headers of X, Y, DY and REPS, in Column order.
constexpr std::string_view kHeaderDefaults[] = {"TIME", "CONC", "SEM", "REPS"};

// Integer slots 1..4 holding a value below kUnsetSlotBelow are given these values.
constexpr int kSlotDefaults[] = {0, 4, 0, 5};
constexpr int kUnsetSlotBelow = -1000;

// Fewer valid points than this cannot be analysed.
constexpr int kMinimalValidPoints = 4;

const std::vector<std::string> kConstantCvWarning = {
    "You have entered a data set with a variance model",
    "which consists of a constant Coefficient of Variation.",
    "This variance model implies that the measurement errors",
    "of the concentrations approach zero when the",
    "concentration approaches zero.  I.e. it simply means that",
    "the Minimal Detectable Concentration is zero.  Since this",
    "is clearly wrong it is expected that this software will",
    "not provide optimal results with this variance model!",
};

// A number in a message or log line: the listing format 1PG15.5 without its blanks.
std::string number(double value) {
  return std::string(core::trim(core::format_g15_5(value)));
}

// `text` followed by `value`, with one blank between them unless `text` ends in one:
// "Data point" + 3 -> "Data point 3", "Irregular data spacing: " + 45 -> "...: 45.000".
std::string with_value(std::string_view text, std::string_view value) {
  std::string line(text);
  if (!line.empty() && line.back() != ' ') line += ' ';
  line += value;
  return line;
}

// A serious error: the lines of its message box and, when the log wants a shorter form,
// the text logged instead of the lines.
struct Refusal {
  std::vector<std::string> lines;
  std::string log_text;
};

// Where the conditioner's messages go: the log, with the conditioner's prefix, and the
// message boxes.
struct Messages {
  ui::Ui& ui;
  ui::LogSink& log;

  void note(std::string_view text) const { log.log(std::string(kLogPrefix) + std::string(text)); }

  // Shows a message box and logs each of its lines as "DATA_CONDITIONER: TITLE: line".
  void box(std::string_view title, const std::vector<std::string>& lines) const {
    ui.message(title, lines);
    for (const auto& line : lines) note(fmt::format("{}: {}", title, line));
  }

  ConditionResult refuse(const Refusal& refusal) const {
    if (refusal.log_text.empty()) {
      box(kSeriousErrorTitle, refusal.lines);
    } else {
      ui.message(kSeriousErrorTitle, refusal.lines);
      note(fmt::format("{}: {}", kSeriousErrorTitle, refusal.log_text));
    }
    return {ConditionStatus::kSeriousError, refusal.lines.front()};
  }
};

// Step 1.
void fill_blank_headers(DataSet& set) {
  for (int c = kX; c <= kReps; ++c) {
    if (core::is_blank(set.headers[c])) set.headers[c] = kHeaderDefaults[c];
  }
}

// Step 2. The threshold 1.0E-5 * Y is formed in double and rounded to single precision,
// the precision of DY itself: for any Y held exactly, a DY written as exactly 1.0E-5 * Y
// then equals it and is refused. A point without a concentration (Y missing) has nothing
// to weigh and is not checked; a NaN fails the comparison and is refused.
std::optional<Refusal> check_uncertainties(const DataSet& set) {
  for (int i = 0; i < set.size(); ++i) {
    const float y = set.y()[i];
    if (core::is_missing(y)) continue;
    if (!(set.dy()[i] > float(1.0E-5 * double(y)))) {
      return Refusal{
          {with_value("Data point", std::to_string(i + 1)) + " has too small of an uncertainty.",
           "The second column of the data file cannot be this small!"},
          {}};
    }
  }
  return std::nullopt;
}

// Before step 4: a time that is missing, infinite or NaN has no increment.
std::optional<Refusal> check_times(const DataSet& set, int first, int last) {
  for (int i = first - 1; i < last; ++i) {
    const float t = set.x()[i];
    if (core::is_missing(t) || !std::isfinite(t)) {
      return Refusal{
          {with_value("Data point", std::to_string(i + 1)) + " has a missing or infinite time."},
          {}};
    }
  }
  return std::nullopt;
}

// Step 4. All in double: increments of single-precision times are exact there.
std::optional<Refusal> check_increments(const IncrementStats& inc) {
  const double tolerance = 1.0E-5 * inc.largest;
  if (inc.minimal < tolerance || inc.minimal == 0 || inc.median < tolerance) {
    return Refusal{{with_value("Minimal Time Increment is Too Small: ", number(inc.minimal))}, {}};
  }
  const double ratio = inc.median / inc.minimal;
  if (ratio > 1.02) {
    return Refusal{{with_value("Median/Minimum time increment is too big: ", number(ratio))}, {}};
  }
  return std::nullopt;
}

// Step 5 over points first..last (1-based): logs and inserts the points of the gaps
// before the first irregular one, moving a crop end that is in effect along with them.
std::optional<Refusal> repair_gaps(DataSet& set, int first, int last, double median,
                                   const Messages& out) {
  const GapPlan plan = plan_gaps(set.x(), first - 1, last - 1, median);
  int added = 0;
  for (const Insertion& gap : plan.insertions) {
    const char* text =
        gap.count == 1 ? "added a point after time =" : "added two points after time =";
    out.note(with_value(text, number(set.x()[gap.after])));
    added += gap.count;
  }
  std::optional<Refusal> refusal;
  if (plan.irregular >= 0) {
    refusal = Refusal{{with_value("Irregular data spacing: ", number(set.x()[plan.irregular]))},
                      "Irregular data spacing"};
  }
  fill_gaps(set, plan.insertions);
  if (!core::is_missing_int(set.crop_end) && set.crop_end == last) set.crop_end += added;
  return refusal;
}

// Steps 4 and 5; a crop range of fewer than two points has no increments to check.
std::optional<Refusal> regularise(DataSet& set, const Messages& out) {
  const int first = set.first_point();
  const int last = set.last_point();
  if (last - first < 1) return std::nullopt;
  if (auto refusal = check_times(set, first, last)) return refusal;
  const auto times = std::span<const float>(set.x()).subspan(first - 1, last - first + 1);
  const IncrementStats inc = increment_stats(times);
  if (auto refusal = check_increments(inc)) return refusal;
  return repair_gaps(set, first, last, inc.median, out);
}

// Step 8.
void default_integer_slots(DataSet& set) {
  for (int s = 0; s < 4; ++s) {
    if (set.integers[s] < kUnsetSlotBelow) set.integers[s] = kSlotDefaults[s];
  }
}

}  // namespace

ConditionResult condition(DataSet& set, bool quiet, ui::Ui& ui, ui::LogSink& log) {
  const Messages out{ui, log};
  fill_blank_headers(set);
  if (auto refusal = check_uncertainties(set)) return out.refuse(*refusal);
  if (sort_by_time(set)) out.note("data set sorted");
  if (auto refusal = regularise(set, out)) return out.refuse(*refusal);

  const int first = set.first_point();
  const int last = set.last_point();
  if (valid_point_count(set, first, last) < kMinimalValidPoints) {
    return out.refuse({{"Not Enough Valid Data Points!"}, {}});
  }
  if (!quiet && has_constant_cv(set, first, last)) out.box(kBadVarianceTitle, kConstantCvWarning);
  default_integer_slots(set);
  return {};
}

}  // namespace tidemark::data
