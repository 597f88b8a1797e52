#include "stats/modes/apen_listing.h"

#include <fmt/format.h>

#include "core/fortran_format.h"
#include "core/missing.h"
#include "core/text.h"

namespace tidemark::stats {
namespace {

// The figures one result line reports for each m: a value, or a mean and its SD.
struct Row {
  std::string_view section;  // " Noise Added = "; empty for the data's own ApEn
  std::string_view label;    // "Noise Added ApEn(" before "1," or "2,"
  float ApEnSummary::*value;
  float ApEnSummary::*sd;  // nullptr: no "+/-"
};

constexpr Row kRows[] = {
    {"", "ApEn(", &ApEnSummary::apen, nullptr},
    {" Noise Added = ", "Noise Added ApEn(", &ApEnSummary::noise_mean, &ApEnSummary::noise_sd},
    {" Shuffled = ", "Shuffled ApEn(", &ApEnSummary::shuffled_mean, &ApEnSummary::shuffled_sd},
    {" Ratio = ", "Ratio ApEn(", &ApEnSummary::ratio, &ApEnSummary::ratio_sd},
    {" Z for Random = ", "Z for Random ApEn(", &ApEnSummary::z, nullptr},
    {" P for Random = ", "P for Random ApEn(", &ApEnSummary::p, nullptr},
};

}  // namespace

std::string apen_value(float value) {
  return core::is_missing(value) ? fmt::format("{:>15}", "Undefined") : core::format_g15_5(value);
}

std::vector<std::string> apen_result_fields(const ApEnResult& result) {
  std::vector<std::string> fields;
  for (const Row& row : kRows) {
    std::string field(row.section.empty() ? " ApEn = " : row.section);
    for (int m = 1; m <= 2; ++m) {
      const ApEnSummary& s = result.m[static_cast<std::size_t>(m - 1)];
      field += fmt::format("{}{}", m == 1 ? "" : ", ", core::trim(apen_value(s.*row.value)));
      if (row.sd != nullptr) field += " +/- " + std::string(core::trim(apen_value(s.*row.sd)));
      field += fmt::format(" (m={})", m);
    }
    fields.push_back(std::move(field));
  }
  return fields;
}

std::vector<std::string> apen_listing(std::string_view file_name, double r_setting,
                                      const ApEnResult& result) {
  std::vector<std::string> lines;
  lines.push_back(fmt::format("ApEn Calculation on {}", file_name));
  if (result.differenced) lines.emplace_back(" Data were first differenced.");
  if (result.z_scores) lines.emplace_back(" Data were converted to Z-scores.");
  const std::string r_text = core::format_f(r_setting, 5, 2);
  lines.push_back(fmt::format(" R = {} with {} Monte-Carlo cycles", r_text, result.cycles));
  const std::string tail = fmt::format(",{},{}) = ", core::trim(r_text), result.n);
  for (const Row& row : kRows) {
    if (!row.section.empty()) lines.emplace_back(row.section);
    for (int m = 1; m <= 2; ++m) {
      const ApEnSummary& s = result.m[static_cast<std::size_t>(m - 1)];
      std::string line = fmt::format("{}{}{}{}", row.label, m, tail, apen_value(s.*row.value));
      if (row.sd != nullptr) line += " +/- " + apen_value(s.*row.sd);
      lines.push_back(std::move(line));
    }
  }
  return lines;
}

}  // namespace tidemark::stats
