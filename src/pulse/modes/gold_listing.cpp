#include "pulse/modes/gold_listing.h"

#include <fmt/format.h>

#include "core/fortran_format.h"

namespace tidemark::pulse {

std::string gold_listing(const GoldRun& run) {
  using core::format_g15_5;
  const GoldRunInput& in = run.input;
  const GoldRunOutput& out = run.output;
  std::string text = " Gold's Method Deconvolution\n";
  text += fmt::format(" File: {}\n Handle: {}\n", in.file_name, in.handle);
  text += fmt::format(" Elimination Half-Life = {}\n", format_g15_5(in.half_life));
  if (in.with_shape) text += fmt::format(" Secretion SD = {}\n", format_g15_5(in.secretion_sd));
  text += fmt::format(" Kernel = {}, lags {} to {}\n",
                      in.with_shape ? "Elimination and Secretion Shape" : "Elimination Only",
                      out.first_lag, out.last_lag);
  text += fmt::format(" Sampling Interval = {}\n", format_g15_5(in.interval));
  text += fmt::format(" Iterations = {}\n", core::format_i(out.result.iterations, 5));
  text += fmt::format(" R = {}\n", format_g15_5(out.result.residual));
  text +=
      out.result.ok() ? " Converged\n" : fmt::format(" Not converged: {}\n", out.result.message);
  text += "\n     #           TIME           CONC      SECRETION\n";
  for (std::size_t i = 0; i < in.time.size(); ++i) {
    text += fmt::format(
        "{}{}{}{}\n", core::format_i(static_cast<long long>(i) + 1, 5), format_g15_5(in.time[i]),
        format_g15_5(in.concentration[i]),
        in.used[i] >= 1 ? format_g15_5(out.result.secretion[i]) : std::string("       not used"));
  }
  return text;
}

std::string gold_answers(const GoldRun& run) {
  using core::format_g15_5;
  const GoldRunInput& in = run.input;
  const GoldResult& result = run.output.result;
  std::string text = fmt::format("Gold_Method results for {}\n", in.file_name);
  text += fmt::format(" Elimination Half-Life = {}\n", format_g15_5(in.half_life));
  if (in.with_shape) text += fmt::format(" Secretion SD = {}\n", format_g15_5(in.secretion_sd));
  text += fmt::format(" Sampling Interval = {}\n Iterations = {}\n R = {}\n",
                      format_g15_5(in.interval), core::format_i(result.iterations, 5),
                      format_g15_5(result.residual));
  if (!result.ok()) text += fmt::format(" Not converged: {}\n", result.message);
  for (std::size_t i = 0; i < in.time.size(); ++i) {
    if (in.used[i] < 1) continue;
    text += fmt::format(" TIME({0}) = {1}  SECRETION({0}) = {2}\n", i + 1, format_g15_5(in.time[i]),
                        format_g15_5(result.secretion[i]));
  }
  return text;
}

}  // namespace tidemark::pulse
