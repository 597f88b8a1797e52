#include "stats/modes/correlation_summary.h"

#include <optional>

#include "core/missing.h"

namespace tidemark::stats {

namespace {

float cell(const std::optional<double>& v) {
  return v ? static_cast<float>(*v) : core::kMissingF;
}

}  // namespace

data::SummaryRow correlation_summary(const CorrelationAnalysis& analysis) {
  data::SummaryRow row;
  const auto& cross = analysis.cross.correlation;
  const auto zero = static_cast<std::size_t>(analysis.max_lag);
  std::optional<std::size_t> best;
  for (std::size_t i = 0; i < cross.size(); ++i) {
    if (cross[i] && (!best || *cross[i] > *cross[*best])) best = i;
  }
  const auto tau = analysis.kendall[zero].tau;
  int column = kCorrelationFirstColumn;
  const auto put = [&](const char* title, float value) {
    row[data::column_letters(column++)] = {title, value};
  };
  put("Correlation Mean A", static_cast<float>(analysis.a.acf.mean));
  put("Correlation Variance A", static_cast<float>(analysis.a.acf.variance));
  put("Correlation Mean B", static_cast<float>(analysis.b.acf.mean));
  put("Correlation Variance B", static_cast<float>(analysis.b.acf.variance));
  put("Correlation CrossCorr Lag 0", cell(cross[zero]));
  put("Correlation Best Lag",
      best ? static_cast<float>(static_cast<int>(*best) - analysis.max_lag) : core::kMissingF);
  put("Correlation Best CrossCorr", best ? cell(cross[*best]) : core::kMissingF);
  put("Correlation Best CrossCorr S.E.",
      best ? static_cast<float>(analysis.cross_standard_error[*best]) : core::kMissingF);
  put("Correlation Kendall's Tau Lag 0", tau ? *tau : core::kMissingF);
  return row;
}

}  // namespace tidemark::stats
