#include "feedback/modes/srquant_data.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <span>

#include "core/fortran_format.h"
#include "core/text.h"
#include "stats/periodic_series.h"

namespace tidemark::feedback {

namespace {

// The used points of a data set's crop range (missing and REPS 0 points left out), with
// their weights; stats::periodic_series decides which are used, as for every series
// analysis of the program.
stats::PeriodicSeries crop_series(const data::DataSet& set) {
  const auto first = static_cast<std::size_t>(set.first_point() - 1);
  const auto count = static_cast<std::size_t>(set.last_point()) - first;
  return stats::periodic_series(std::span(set.x()).subspan(first, count),
                                std::span(set.y()).subspan(first, count),
                                std::span(set.dy()).subspan(first, count),
                                std::span(set.reps()).subspan(first, count));
}

SeriesUse use_of(const data::DataSet& set, int number, const stats::PeriodicSeries& s) {
  return {number,        set.file_name, set.handle, set.concentration_header(),
          s.size(),      s.missing,     s.unreplicated};
}

// Why the times of `s` do not increase (naming the data set and point); empty when they do.
std::string decreasing_time(const stats::PeriodicSeries& s, const data::DataSet& set,
                            int number) {
  for (std::size_t i = 1; i < s.t.size(); ++i) {
    if (s.t[i] <= s.t[i - 1]) {
      return fmt::format(
          "The times of data set {} ({}) do not increase at point {}: sort the data set first.",
          number, set.file_name, set.first_point() + s.index[i]);
    }
  }
  return {};
}

std::string time_text(double t) {
  return std::string(core::trim(core::format_g15_5(t)));
}

}  // namespace

ResponseSeries read_response_series(const data::Store& store, int output,
                                    const std::vector<int>& inputs) {
  ResponseSeries r;
  const auto exists = [&store](int number) { return number >= 1 && number <= store.count(); };
  if (!exists(output)) {
    r.problem = fmt::format("The output data set {} does not exist: choose 1 to {}.", output,
                            store.count());
    return r;
  }
  for (std::size_t i = 0; i < inputs.size(); ++i) {
    if (!exists(inputs[i])) {
      r.problem = fmt::format("The data set {} of input {} does not exist: choose 1 to {}.",
                              inputs[i], i + 1, store.count());
      return r;
    }
    if (inputs[i] == output) {
      r.problem = fmt::format(
          "Input {} is the output's own data set ({}): a series cannot drive itself.", i + 1,
          output);
      return r;
    }
  }
  const data::DataSet& out_set = store.at(output - 1);
  const stats::PeriodicSeries out = crop_series(out_set);
  r.output = use_of(out_set, output, out);
  r.problem = decreasing_time(out, out_set, output);
  if (!r.ok()) return r;
  r.sem_weights = out.sem_weights;
  r.data.time = out.t;
  r.data.conc = out.y;
  for (const double w : out.w) r.data.sem.push_back(1 / std::sqrt(w));
  for (const int number : inputs) {
    const data::DataSet& set = store.at(number - 1);
    const stats::PeriodicSeries s = crop_series(set);
    r.inputs.push_back(use_of(set, number, s));
    r.problem = decreasing_time(s, set, number);
    if (!r.ok()) return r;
    r.data.inputs.push_back({s.t, s.y});
  }
  return r;
}

void keep_reach(ResponseSeries& series, const ResponseModel& model) {
  ResponseData& d = series.data;
  double from = -HUGE_VAL, to = HUGE_VAL;
  for (std::size_t i = 0; i < d.inputs.size() && i < model.inputs.size(); ++i) {
    const Series& in = d.inputs[i];
    if (in.time.empty()) continue;  // the kernel refuses an input without points
    const Bounded& delay = model.inputs[i].delay;
    from = std::max(from, in.time.front() + (delay.fit ? delay.upper : delay.start));
    to = std::min(to, in.time.back() + (delay.fit ? delay.lower : delay.start));
  }
  ResponseData kept;
  kept.inputs = d.inputs;
  series.early = series.late = 0;
  for (std::size_t k = 0; k < d.time.size(); ++k) {
    if (d.time[k] < from) {
      ++series.early;
    } else if (d.time[k] > to) {
      ++series.late;
    } else {
      kept.time.push_back(d.time[k]);
      kept.conc.push_back(d.conc[k]);
      kept.sem.push_back(d.sem[k]);
    }
  }
  if (kept.time.empty() && !d.time.empty()) {
    series.problem = fmt::format(
        "The inputs do not reach any of the output's times: the output runs from {} to {}, "
        "and with their delays the inputs reach from {} to {}.",
        time_text(d.time.front()), time_text(d.time.back()), time_text(from), time_text(to));
    return;
  }
  d = std::move(kept);
}

}  // namespace tidemark::feedback
