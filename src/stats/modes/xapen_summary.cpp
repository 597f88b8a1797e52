#include "stats/modes/xapen_summary.h"

#include <fmt/format.h>

namespace tidemark::stats {

data::SummaryRow xapen_summary(const XApEnReport& report) {
  data::SummaryRow row;
  int column = kXApEnFirstColumn;
  const auto put = [&](std::string title, double value) {
    row[data::column_letters(column++)] = {std::move(title), static_cast<float>(value)};
  };
  put("XApEn # MC Cycles", report.cycles);
  put("XApEn R", report.r);
  for (std::size_t m = 0; m < 2; ++m) {
    const auto title = [m](const char* what) { return fmt::format("{}XApEn({})", what, m + 1); };
    put(title(""), report.data.value[m]);
    put(title("+Noise "), report.noise[m].mean);
    put(title("+Noise ") + " SD", report.noise[m].sd);
    put(title("Random "), report.random[m].mean);
    put(title("Random ") + " SD", report.random[m].sd);
    put(title("Ratio "), report.ratio[m].value);
    put(title("Ratio ") + " SD", report.ratio[m].sd);
  }
  return row;
}

}  // namespace tidemark::stats
