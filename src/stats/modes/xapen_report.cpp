#include "stats/modes/xapen_report.h"

#include <fmt/format.h>

#include <cmath>

#include "core/fortran_format.h"
#include "core/missing.h"
#include "core/text.h"

namespace tidemark::stats {

namespace {

// "<label>R,N) = " with R in F5.2 and N as a plain integer, both without blanks.
std::string head(std::string_view label, const XApEnReport& report) {
  return fmt::format("{}{},{}) = ", label, core::trim(core::format_f(report.r, 5, 2)), report.n);
}

std::string plus_minus(double mean, double sd) {
  return core::format_g15_5(mean) + "+/-" + core::format_g15_5(sd);
}

}  // namespace

Ratio xapen_ratio(double xapen, const MeanSd& noise, const MeanSd& random) {
  const double s = random.mean;
  if (s == 0) return {core::kMissing, core::kMissing};
  const double ratio = xapen / s;
  const double sd =
      std::sqrt(std::abs(std::pow(noise.sd / s, 2) + std::pow(ratio * random.sd / s, 2)));
  return {ratio, sd};
}

void summarize_cycles(const XApEnCycles& cycles, XApEnReport& report) {
  for (int m = 0; m < 2; ++m) {
    report.noise[m] = mean_sd(cycles.noise[m]);
    report.random[m] = mean_sd(cycles.random[m]);
    report.ratio[m] = xapen_ratio(report.data.value[m], report.noise[m], report.random[m]);
  }
}

std::vector<std::string> xapen_result_lines(const XApEnReport& report) {
  std::vector<std::string> lines;
  for (int m = 0; m < 2; ++m) {
    const std::string n = m == 0 ? "1," : "2,";
    // The random line of m = 2 keeps the m = 1 label of the original listing.
    lines.push_back(head(" XApEn(" + n, report) + core::format_g15_5(report.data.value[m]));
    lines.push_back(head(" +Noise XApEn(" + n, report) +
                    plus_minus(report.noise[m].mean, report.noise[m].sd));
    lines.push_back(head(" Random XApEn(1,", report) +
                    plus_minus(report.random[m].mean, report.random[m].sd));
    lines.push_back(head(" Ratio XApEn(" + n, report) +
                    plus_minus(report.ratio[m].value, report.ratio[m].sd));
  }
  return lines;
}

std::string xapen_listing(const XApEnReport& report) {
  std::string text = " XApEn Calculation\n";
  text += " " + report.a_name + "  vs. " + report.b_name + "\n";
  text += " R = " + core::format_g15_5(report.r) + " * SD\n";
  text += fmt::format(" with {} Monte-Carlo cycles\n", report.cycles);
  for (const std::string& line : xapen_result_lines(report)) text += line + "\n";
  text += "\n Summary of \"Hits\"\n";
  text += fmt::format("{:>8}{:>10}{:>10}\n", "Lag", "m=0", "m=1");
  for (int lag = 1 - report.hits.n; lag < report.hits.n; ++lag) {
    text += core::format_i(lag, 8) + core::format_i(report.hits.at(0, lag), 10) +
            core::format_i(report.hits.at(1, lag), 10) + "\n";
  }
  return text;
}

}  // namespace tidemark::stats
