#include "pulse/modes/cluster8_events.h"

#include <cmath>

#include "core/fortran_format.h"
#include "core/missing.h"

namespace tidemark::pulse {
namespace {

std::string point_numbers(const std::vector<int>& points) {
  std::string text;
  for (int p : points) text += core::format_i(p, 5);
  return text;
}

std::string counts(const Cluster8Result& r) {
  return std::to_string(r.peaks.size()) + " peaks, " + std::to_string(r.valleys.size()) +
         " valleys, " + std::to_string(r.outliers.questionable.size()) + " questionable and " +
         std::to_string(r.outliers.probable.size()) + " probable outliers";
}

}  // namespace

std::vector<data::SecretionEvent> cluster8_events(const Cluster8Result& r) {
  std::vector<data::SecretionEvent> events;
  for (const Cluster8Peak& p : r.peaks) {
    const double height = p.increase > 0.0f ? p.increase : p.largest;
    events.push_back(
        {r.grid.times[p.position], height > 0.0 ? std::log10(height) : core::kMissing});
  }
  return events;
}

std::string cluster8_answers(const std::string& file_name, const Cluster8Result& r) {
  std::string text = "Cluster8 results for " + file_name + "\n";
  text += " Number of Peaks = " + core::format_i(static_cast<long long>(r.peaks.size()), 5) + "\n";
  const auto events = cluster8_events(r);
  for (std::size_t e = 0; e < events.size(); ++e) {
    const std::string n = std::to_string(e + 1);
    text += " POSITION(" + n + ") = " + core::format_g15_5(events[e].position) + "  LogHeight(" +
            n + ") = " + core::format_g15_5(events[e].log_height) + "\n";
  }
  text += " Questionable Outliers:" + point_numbers(r.outliers.questionable) + "\n";
  text += " Probable Outliers:" + point_numbers(r.outliers.probable) + "\n";
  return text;
}

std::vector<std::string> cluster8_log_lines(const std::string& file_name, const Cluster8Result& r) {
  return {"Cluster8 on " + file_name + ": " + counts(r)};
}

}  // namespace tidemark::pulse
