#include "pulse/modes/gold_listing.h"

#include <fmt/format.h>

#include "core/fortran_format.h"

namespace tidemark::pulse {

std::string gold_listing(const GoldRun& run) {
  using core::format_g15_5;
  std::string out = " Gold's Method Deconvolution\n";
  out += fmt::format(" File: {}\n Handle: {}\n", run.file_name, run.handle);
  out += fmt::format(" Elimination Half-Life = {}\n", format_g15_5(run.half_life));
  if (run.with_shape) out += fmt::format(" Secretion SD = {}\n", format_g15_5(run.secretion_sd));
  out += fmt::format(" Kernel = {}, lags {} to {}\n",
                     run.with_shape ? "Elimination and Secretion Shape" : "Elimination Only",
                     run.first_lag, run.last_lag);
  out += fmt::format(" Sampling Interval = {}\n", format_g15_5(run.interval));
  out += fmt::format(" Iterations = {}\n", core::format_i(run.result.iterations, 5));
  out += fmt::format(" R = {}\n", format_g15_5(run.result.residual));
  out += run.result.ok() ? " Converged\n" : fmt::format(" Not converged: {}\n", run.result.message);
  out += "\n     #           TIME           CONC      SECRETION\n";
  for (std::size_t i = 0; i < run.time.size(); ++i) {
    out += fmt::format(
        "{}{}{}{}\n", core::format_i(static_cast<long long>(i) + 1, 5), format_g15_5(run.time[i]),
        format_g15_5(run.concentration[i]),
        run.used[i] >= 1 ? format_g15_5(run.result.secretion[i]) : std::string("       not used"));
  }
  return out;
}

}  // namespace tidemark::pulse
