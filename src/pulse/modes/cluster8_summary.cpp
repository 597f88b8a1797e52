#include "pulse/modes/cluster8_summary.h"

#include <array>
#include <string>
#include <string_view>

#include "core/missing.h"

namespace tidemark::pulse {

namespace {

constexpr int kFirstColumn = 43;  // AQ, after Cosine's AK to AP

struct PeakField {
  std::string_view title;
  OptionalSummary Cluster8PeakSummary::*value;
};
struct ValleyField {
  std::string_view title;
  OptionalSummary Cluster8ValleySummary::*value;
};

constexpr std::array<PeakField, 7> kPeakFields{{
    {"Cluster8 Peak Interval", &Cluster8PeakSummary::interval},
    {"Cluster8 Peak Width", &Cluster8PeakSummary::width},
    {"Cluster8 Peak Height", &Cluster8PeakSummary::height},
    {"Cluster8 Peak Height % Increase", &Cluster8PeakSummary::height_percent},
    {"Cluster8 Mean Peak Height % Increase", &Cluster8PeakSummary::mean_percent},
    {"Cluster8 Peak Area", &Cluster8PeakSummary::area},
    {"Cluster8 Peak Increase Above Basal", &Cluster8PeakSummary::increase},
}};

constexpr std::array<ValleyField, 3> kValleyFields{{
    {"Cluster8 Valley Width", &Cluster8ValleySummary::width},
    {"Cluster8 Valley Mean Level", &Cluster8ValleySummary::mean},
    {"Cluster8 Valley Nadir", &Cluster8ValleySummary::nadir},
}};

}  // namespace

void put_cluster8_summary(data::SummaryRow& row, const Cluster8Result& result) {
  int column = kFirstColumn;
  const auto put = [&](std::string title, float value) {
    row[data::column_letters(column++)] = {std::move(title), value};
  };
  const auto put_pair = [&](std::string_view title, const OptionalSummary& s) {
    put(std::string(title), s ? s->mean : core::kMissingF);
    put(std::string(title) + " SD", s ? s->sd : core::kMissingF);
  };
  put("Cluster8 # Peaks", static_cast<float>(result.peaks.size()));
  put("Cluster8 # Valleys", static_cast<float>(result.valleys.size()));
  put("Cluster8 Total Area", result.total_area);
  for (const PeakField& f : kPeakFields) {
    put_pair(f.title, result.peak_summary ? (*result.peak_summary).*f.value : std::nullopt);
  }
  for (const ValleyField& f : kValleyFields) {
    put_pair(f.title, result.valley_summary ? (*result.valley_summary).*f.value : std::nullopt);
  }
}

}  // namespace tidemark::pulse
