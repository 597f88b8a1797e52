#include "stats/modes/xapen_selection.h"

#include <fmt/format.h>

#include "core/missing.h"
#include "stats/xapen.h"

namespace tidemark::stats {

namespace {

using Lines = std::vector<std::string>;

constexpr std::string_view kOpening = "Cross-ApEn requires two data sets";

Lines refusal(std::string_view reason) {
  return {std::string(kOpening), std::string(reason), "Please select new data sets."};
}

// The crop range of `set` as 0-based [first, last).
std::pair<int, int> range(const data::DataSet& set) {
  return set.size() == 0 ? std::pair{0, 0} : std::pair{set.first_point() - 1, set.last_point()};
}

}  // namespace

XApEnSelection select_xapen_series(const data::Store& store, int a_number, int b_number) {
  XApEnSelection s;
  if (store.count() < 2) {
    s.messages = {std::string(kOpening) + ".", "Therefore, please read another data set."};
    return s;
  }
  for (const int number : {a_number, b_number}) {
    if (number < 1 || number > store.count()) {
      s.messages = {fmt::format("There is no data set {}: choose 1 to {}.", number, store.count())};
      return s;
    }
  }
  s.a = &store.at(a_number - 1);
  s.b = &store.at(b_number - 1);
  const auto [a0, a1] = range(*s.a);
  const auto [b0, b1] = range(*s.b);
  const int n = a1 - a0;
  if (n != b1 - b0) {
    s.messages = refusal("with equal numbers of data points.");
    return s;
  }
  for (int k = 0; k < n; ++k) {
    if (s.a->x()[a0 + k] != s.b->x()[b0 + k]) {
      s.messages = refusal("with identical time values!");
      return s;
    }
    if (core::is_missing(s.a->y()[a0 + k]) || core::is_missing(s.b->y()[b0 + k])) {
      s.messages = refusal("without missing concentrations.");
      return s;
    }
  }
  if (n < kXApEnMinPoints) {
    s.messages = {"Please get more data."};
    return s;
  }
  const auto take = [](const std::vector<float>& column, int first, int last) {
    return std::vector<float>(column.begin() + first, column.begin() + last);
  };
  s.ya = take(s.a->y(), a0, a1);
  s.sa = take(s.a->dy(), a0, a1);
  s.yb = take(s.b->y(), b0, b1);
  s.sb = take(s.b->dy(), b0, b1);
  // A missing standard error adds no noise.
  for (std::vector<float>* errors : {&s.sa, &s.sb}) {
    for (float& e : *errors) e = core::is_missing(e) ? 0.0f : e;
  }
  s.ok = true;
  return s;
}

}  // namespace tidemark::stats
