#include "stats/modes/apen_summary.h"

#include <fmt/format.h>

#include <array>
#include <string_view>

namespace tidemark::stats {

namespace {

struct SummaryField {
  std::string_view title;  // {} stands for m
  float ApEnSummary::*value;
};

// The nine columns of one embedding length, in column order.
constexpr std::array<SummaryField, 9> kFields{{
    {"ApEn({},R,)", &ApEnSummary::apen},
    {"Noise Added ApEn({},R,,)", &ApEnSummary::noise_mean},
    {"Noise Added ApEn({},R,,) SD", &ApEnSummary::noise_sd},
    {"Shuffled ApEn({},R,,)", &ApEnSummary::shuffled_mean},
    {"Shuffled ApEn({},R,,) SD", &ApEnSummary::shuffled_sd},
    {"Ratio ApEn({},R,,)", &ApEnSummary::ratio},
    {"Ratio ApEn({},R,,) SD", &ApEnSummary::ratio_sd},
    {"Z for ApEn({},R,,)", &ApEnSummary::z},
    {"P for ApEn({},R,,)", &ApEnSummary::p},
}};

constexpr int kCyclesColumn = 17;  // Q; R follows, then m = 1 from S and m = 2 from AB

}  // namespace

void put_apen_summary(data::SummaryRow& row, const ApEnResult& result) {
  row[data::column_letters(kCyclesColumn)] = {"ApEn # MC Cycles",
                                              static_cast<float>(result.cycles)};
  row[data::column_letters(kCyclesColumn + 1)] = {"ApEn R", result.r};
  int column = kCyclesColumn + 2;
  for (int m = 1; m <= 2; ++m) {
    const ApEnSummary& s = result.m[static_cast<std::size_t>(m - 1)];
    for (const SummaryField& field : kFields) {
      row[data::column_letters(column++)] = {fmt::format(fmt::runtime(field.title), m),
                                             s.*field.value};
    }
  }
}

}  // namespace tidemark::stats
