#include "stats/modes/paired_series.h"

#include <fmt/format.h>

#include "core/missing.h"
#include "data/conditioner.h"

namespace tidemark::stats {
namespace {

// The crop range of `set` as 0-based [first, last).
std::pair<int, int> crop(const data::DataSet& set) {
  return set.size() == 0 ? std::pair{0, 0} : std::pair{set.first_point() - 1, set.last_point()};
}

// The standard errors of points [first, last) of `set`; a missing one adds no noise.
std::vector<float> errors(const data::DataSet& set, int first, int last) {
  std::vector<float> e(set.dy().begin() + first, set.dy().begin() + last);
  for (float& v : e) v = core::is_missing(v) ? 0.0f : v;
  return e;
}

}  // namespace

std::vector<std::string> condition_pair(data::Store& store, int a_number, int b_number,
                                        ui::Ui& ui, ui::LogSink& log) {
  for (const int number : {a_number, b_number}) {
    if (store.count() < 2 || number < 1 || number > store.count()) return {};
    data::DataSet& set = store.at(number - 1);
    if (!data::condition(set, false, ui, log).ok()) {
      return {fmt::format("Data set {} ({}) did not pass the data conditioner.", number,
                          set.file_name)};
    }
  }
  return {};
}

PairedSeries select_paired_series(const data::Store& store, int a_number, int b_number,
                                  std::string_view mode_title, int min_points) {
  PairedSeries s;
  const std::string opening = fmt::format("{} requires two data sets", mode_title);
  const auto refuse = [&](std::vector<std::string> lines) {
    s.messages = std::move(lines);
    return s;
  };
  if (store.count() < 2) return refuse({opening + ".", "Therefore, please read another data set."});
  for (const int number : {a_number, b_number})
    if (number < 1 || number > store.count())
      return refuse(
          {fmt::format("There is no data set {}: choose 1 to {}.", number, store.count())});
  s.a = &store.at(a_number - 1);
  s.b = &store.at(b_number - 1);
  const auto [a0, a1] = crop(*s.a);
  const auto [b0, b1] = crop(*s.b);
  const int n = a1 - a0;
  if (n != b1 - b0)
    return refuse({opening, "with equal numbers of data points.", "Please select new data sets."});
  for (int k = 0; k < n; ++k) {
    if (s.a->x()[a0 + k] != s.b->x()[b0 + k])
      return refuse({opening, "with identical time values!", "Please select new data sets."});
    if (core::is_missing(s.a->y()[a0 + k]) || core::is_missing(s.b->y()[b0 + k]))
      return refuse({opening, "without missing concentrations.", "Please select new data sets."});
  }
  if (n < min_points) return refuse({"Please get more data."});
  s.ya.assign(s.a->y().begin() + a0, s.a->y().begin() + a1);
  s.yb.assign(s.b->y().begin() + b0, s.b->y().begin() + b1);
  s.sa = errors(*s.a, a0, a1);
  s.sb = errors(*s.b, b0, b1);
  s.delta_t = n >= 2 ? static_cast<double>(s.a->x()[a0 + 1]) - s.a->x()[a0] : 0.0;
  s.status = PairedSeriesStatus::kPaired;
  return s;
}

}  // namespace tidemark::stats
