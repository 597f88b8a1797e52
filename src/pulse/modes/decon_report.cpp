#include "pulse/modes/decon_report.h"

#include <fmt/format.h>

#include <array>

#include "core/fortran_format.h"
#include "core/missing.h"
#include "core/text.h"
#include "data/secretion_events.h"
#include "pulse/decon_summary.h"

namespace tidemark::pulse {

namespace {

constexpr int kFirstSummaryColumn = 2;  // B

std::string g(double v) {
  return core::format_g15_5(v);
}

}  // namespace

std::array<double, data::kModelParameterCount> decon_model_parameters(const DeconRun& run) {
  const ModelVector& v = run.result.fit.model;
  std::array<double, data::kModelParameterCount> fixed;
  fixed.fill(core::kMissing);
  for (int j = 0; j < v.layout.first_event_index(); ++j) fixed[j] = v.values[j];
  return fixed;
}

std::vector<data::SecretionEvent> decon_events(const DeconRun& run) {
  const ModelVector& v = run.result.fit.model;
  std::vector<data::SecretionEvent> events;
  for (int e = 0; e < v.layout.events; ++e) {
    events.push_back({v.values[v.layout.position_index(e)], v.values[v.layout.log_height_index(e)]});
  }
  return events;
}

void put_decon_summary(data::SummaryRow& row, const DeconRun& run) {
  const ModelVector& v = run.result.fit.model;
  const DeconSummary s = summarize(v.values, v.layout, run.time.front(), run.time.back());
  const auto half_life = [&](int j, int index) {
    return v.layout.half_lives >= j ? static_cast<float>(v.values[index]) : core::kMissingF;
  };
  const std::array<data::SummaryCell, 8> cells = {{
      {"Decon # Events", static_cast<float>(s.events)},
      {"Decon Mean Interval", static_cast<float>(s.mean_interval)},
      {"Decon Basal Secretion", static_cast<float>(s.basal_secretion)},
      {"Decon Pulsatile Secretion", static_cast<float>(s.pulsatile_secretion)},
      {"Decon Half-Life(1)", half_life(1, kHalfLife1)},
      {"Decon Half-Life(2)", half_life(2, kHalfLife2)},
      {"Decon Half-Life(3)", half_life(3, kHalfLife3)},
      {"Decon SD", static_cast<float>(v.values[kSecretionSd])},
  }};
  for (std::size_t c = 0; c < cells.size(); ++c) {
    row[data::column_letters(kFirstSummaryColumn + static_cast<int>(c))] = cells[c];
  }
}

std::string decon_answers(const DeconRun& run) {
  const ModelVector& v = run.result.fit.model;
  std::string text = fmt::format("{} results for {}\n", run.mode_name, run.file_name);
  for (int j = 0; j < v.layout.first_event_index(); ++j) {
    text += fmt::format(" {} = {}\n", parameter_name(v.layout, j), g(v.values[j]));
  }
  text += fmt::format(" Number of Events = {}\n", core::format_i(v.layout.events, 5));
  for (int e = 0; e < v.layout.events; ++e) {
    const double l = v.values[v.layout.log_height_index(e)];
    const double p = e < static_cast<int>(run.result.p_values.size()) ? run.result.p_values[e] : 1.0;
    text += fmt::format(" POSITION({0}) = {1}  LogHeight({0}) = {2}  MASS({0}) = {3}  P({0}) = {4}\n",
                        e + 1, g(v.values[v.layout.position_index(e)]), g(l),
                        g(event_mass(l, v.values[kSecretionSd])), g(p));
  }
  return text;
}

std::string decon_log_line(const DeconRun& run) {
  const DeconFitResult& fit = run.result.fit;
  return fmt::format("{}: {} events, half-life {}, SD {}, variance {} on {} degrees of freedom",
                     run.mode_name, fit.model.layout.events,
                     core::trim(g(fit.model.values[kHalfLife1])),
                     core::trim(g(fit.model.values[kSecretionSd])), core::trim(g(fit.variance())),
                     fit.degrees_of_freedom());
}

}  // namespace tidemark::pulse
