#include "stats/modes/cosine_listing.h"

#include <fmt/format.h>

#include "core/fortran_format.h"

namespace tidemark::stats {

namespace {

std::string heading(std::string_view file_name) {
  return fmt::format("Cosine Analysis of {}\n\n", file_name);
}

}  // namespace

std::string cosine_variance_line(double variance, int points) {
  return " Variance = " + core::format_g15_5(variance) + " with " + std::to_string(points);
}

std::string cosine_remaining_line(double percent) {
  return core::format_g15_5(percent) + " % variance remaining";
}

std::string lsfit2_error_line(Lsfit2Code code) {
  return " LSFIT2 return error code = " + std::to_string(code_number(code));
}

std::string cosine_listing(std::string_view file_name, const CosineFit& fit,
                           const CosineFlags& flags) {
  std::string text = heading(file_name);
  text += fmt::format("{:<10}{:>15}{:>15}{:>15}\n", "Parameter", "Value", "Lower 95%", "Upper 95%");
  for (int j = 0; j < kCosineParameters; ++j) {
    text += std::string(kCosineNames[j]) + core::format_g15_5(fit.values[j]);
    if (flags[j]) {
      // The engine's interval is symmetric about its own value; the normalisation moves
      // the value (sign of the amplitude, phase by periods), so the interval moves with it.
      const double half_width = fit.engine.upper[j] - fit.engine.values[j];
      text += core::format_g15_5(fit.values[j] - half_width) +
              core::format_g15_5(fit.values[j] + half_width);
    }
    text += '\n';
  }
  text += '\n' + cosine_variance_line(fit.engine.variance, fit.engine.points) + '\n';
  text += cosine_remaining_line(fit.percent) + '\n';
  return text;
}

std::string cosine_error_listing(std::string_view file_name, const Lsfit2Result& engine) {
  return heading(file_name) + lsfit2_error_line(engine.code) + '\n' + engine.message + '\n';
}

}  // namespace tidemark::stats
