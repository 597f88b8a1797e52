#include "stats/modes/correlation_listing.h"

#include <fmt/format.h>

#include "core/fortran_format.h"

namespace tidemark::stats {
namespace {

// 1PGw.5 of a defined value, else "Undefined" right-justified in w columns.
std::string number(const std::optional<double>& v, int width = 15) {
  return v ? core::format_g(*v, width, 5, 0, 1) : fmt::format("{:>{}}", "Undefined", width);
}

std::string series_part(const SeriesCorrelation& s, const char* mean_label,
                        const char* variance_label) {
  std::string out = fmt::format(" {}{}\n {}{}\n S.E. per Moran, 1947\n", mean_label,
                                core::format_g15_5(s.acf.mean), variance_label,
                                core::format_g15_5(s.acf.variance));
  out += "  Lag   Autocovar       Autocorr         S.E.           PACF\n";
  for (std::size_t k = 1; k < s.acf.autocovariance.size(); ++k)
    out += fmt::format("{}{}{}{}{}\n", core::format_i(static_cast<long long>(k), 5),
                       core::format_g15_5(s.acf.autocovariance[k]), number(s.acf.correlation[k]),
                       core::format_g15_5(s.acf.standard_error[k]), number(s.pacf.partial[k - 1]));
  return out + "\n";
}

}  // namespace

std::string correlation_listing(const CorrelationAnalysis& analysis, std::string_view a_name,
                                std::string_view b_name, double delta_t) {
  std::string out = fmt::format(" A-series = {}   B-series = {}\n", a_name, b_name);
  out += " Delta Time Interval = " + core::format_g15_5(delta_t) + "\n";
  out += series_part(analysis.a, "Mean of A-series = ", "Variance of A-series = ");
  out += series_part(analysis.b, "Mean of B-series = ", "Variannce of B-series = ");
  out += "  Lag   CrossCovar      CrossCorr        S.E.\n";
  const int max_lag = analysis.max_lag;
  for (int k = -max_lag; k <= max_lag; ++k) {
    const auto i = static_cast<std::size_t>(k + max_lag);
    out += fmt::format("{}{}{}{}\n", core::format_i(k, 5),
                       core::format_g15_5(analysis.cross.covariance[i]),
                       number(analysis.cross.correlation[i]),
                       core::format_g15_5(analysis.cross_standard_error[i]));
  }
  out += "\n  Lag       Kendall's Tau       S.E.\n";
  for (int k = -max_lag; k <= max_lag; ++k) {
    const auto& tau = analysis.kendall[static_cast<std::size_t>(k + max_lag)];
    out += fmt::format("{}{}{}\n", core::format_i(k, 5),
                       number(tau.tau ? std::optional<double>(*tau.tau) : std::nullopt, 20),
                       number(tau.standard_error));
  }
  return out;
}

}  // namespace tidemark::stats
