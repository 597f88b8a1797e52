#include "pulse/modes/gold_summary.h"

#include "core/missing.h"

namespace tidemark::pulse {

data::SummaryRow gold_summary(const GoldRun& run) {
  data::SummaryRow row;
  int column = kGoldFirstColumn;
  const auto put = [&](const char* title, double value) {
    row[data::column_letters(column++)] = {title, static_cast<float>(value)};
  };
  put("Gold Half-Life", run.input.half_life);
  put("Gold Secretion SD", run.input.with_shape ? run.input.secretion_sd : core::kMissing);
  put("Gold Sampling Interval", run.input.interval);
  put("Gold Iterations", run.output.result.iterations);
  put("Gold R", run.output.result.residual);
  return row;
}

}  // namespace tidemark::pulse
