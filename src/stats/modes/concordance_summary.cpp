#include "stats/modes/concordance_summary.h"

#include "core/missing.h"

namespace tidemark::stats {

data::SummaryRow concordance_summary(const ConcordanceReport& report) {
  data::SummaryRow row;
  const std::size_t k = report.pairs.size();
  const auto at_k = [k](const std::vector<double>& v) {
    return k < v.size() ? static_cast<float>(v[k]) : core::kMissingF;
  };
  int column = kConcordanceFirstColumn;
  const auto put = [&](const char* title, float value) {
    row[data::column_letters(column++)] = {title, value};
  };
  put("Concordance # Peaks A", static_cast<float>(report.a.events.size()));
  put("Concordance # Peaks B", static_cast<float>(report.b.events.size()));
  put("Concordance # Coincidences", static_cast<float>(k));
  put("Concordance # MC Cycles", static_cast<float>(report.cycles));
  put("Concordance P(=Coincidences)", at_k(report.table.p));
  put("Concordance P(>=Coincidences)", at_k(report.table.q));
  return row;
}

}  // namespace tidemark::stats
