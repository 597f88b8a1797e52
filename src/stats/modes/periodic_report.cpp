#include "stats/modes/periodic_report.h"

#include <fmt/format.h>

#include <cmath>

#include "core/fortran_format.h"
#include "core/missing.h"

namespace tidemark::stats {

namespace {

std::string g(double v) {
  return core::format_g15_5(v);
}

// A time, with its clock time when the times are minutes from midnight.
std::string time_of(const PeriodicReport& r, double t) {
  return r.clock_times ? g(t) + "  (" + clock_time(t) + ")" : g(t);
}

std::string peaks_table(const PeriodicReport& r) {
  std::string text = " Rank         Period          Power     FAP Baluev    FAP Permut.\n";
  for (std::size_t i = 0; i < r.peaks.peaks.size(); ++i) {
    const PeriodicPeak& p = r.peaks.peaks[i];
    text += fmt::format("{:5d}{}{}{}{}\n", i + 1, g(p.period), g(p.power), g(p.fap),
                        core::is_missing(p.permutation_fap) ? "" : g(p.permutation_fap));
  }
  if (r.peaks.peaks.empty()) text += " No peak: the periodogram is flat.\n";
  text += fmt::format(" Permutation cycles = {}\n", r.cycles);
  text += fmt::format(" Power at FAP 0.05 = {}   at FAP 0.01 = {}\n",
                      g(baluev_level(0.05, r.peaks.baluev)), g(baluev_level(0.01, r.peaks.baluev)));
  return text;
}

std::string fit_block(const PeriodicReport& r) {
  const HarmonicFitResult& f = r.fit;
  std::string text = fmt::format(" Rhythm fit at Period = {} with {} harmonic(s){}\n", g(f.period),
                                 f.harmonics, f.trend ? " and a linear trend" : "");
  if (!f.ok()) return text + " " + f.message + "\n";
  text += "                    Value      Lower 95%      Upper 95%\n";
  text += " MESOR     " + g(f.mesor) + g(f.mesor_lower) + g(f.mesor_upper) + "\n";
  if (f.trend) text += " Slope     " + g(f.slope) + "  SE " + g(f.slope_se) + "\n";
  text += " Harmonic      Amplitude      Lower 95%      Upper 95%      Acrophase      Lower 95%"
          "      Upper 95%\n";
  for (int h = 1; h <= f.harmonics; ++h) {
    const HarmonicTerm& t = f.terms[h - 1];
    text += fmt::format("{:9d} ", h) + g(t.amplitude) + g(t.amplitude_lower) +
            g(t.amplitude_upper) + g(t.acrophase) + g(t.acrophase_lower) + g(t.acrophase_upper);
    if (r.clock_times) text += "  " + clock_time(t.acrophase);
    text += "\n";
  }
  text += " Amplitude of the curve = " + g(f.amplitude) + "\n";
  text += " Acrophase of the curve = " + time_of(r, f.acrophase) + "\n";
  text += " Nadir of the curve     = " + time_of(r, f.nadir) + "\n";
  text += " Percent rhythm         = " + g(f.percent_rhythm) + "\n";
  text += fmt::format(" Zero-amplitude F = {} on {} and {} degrees of freedom, P = {}\n",
                      g(f.f_statistic), f.df1, f.df2, g(f.p_value));
  text += " Residual s (weighted)  = " + g(f.residual_sd) + "\n";
  return text;
}

}  // namespace

std::string clock_time(double minutes) {
  double m = std::fmod(minutes, 1440.0);
  if (m < 0) m += 1440;
  auto whole = static_cast<long>(std::lround(m)) % 1440;
  return fmt::format("{:02d}:{:02d}", whole / 60, whole % 60);
}

std::string periodic_listing(const PeriodicReport& r) {
  const PeriodicSeries& s = r.series;
  std::string text = "Periodic Rhythm Analysis of " + r.file_name + "\n\n";
  text += fmt::format(" Points used = {:6d}  (missing {:4d}, REPS 0 {:4d}); weights {}\n",
                      s.size(), s.missing, s.unreplicated, s.sem_weights ? "1/SEM^2" : "equal");
  const PeriodogramResult& p = r.periodogram;
  if (p.trend) {
    text += " Trend removed: intercept = " + g(p.trend->intercept) + "  slope = " +
            g(p.trend->slope) + "\n";
  }
  text += fmt::format(" Trial periods = {:6d} from {} to {}\n\n", p.grid.count, g(p.min_period),
                      g(p.max_period));
  text += peaks_table(r) + "\n" + fit_block(r);
  return text;
}

std::vector<std::string> periodic_log_lines(const PeriodicReport& r) {
  std::vector<std::string> lines;
  if (!r.peaks.peaks.empty()) {
    const PeriodicPeak& best = r.peaks.peaks.front();
    lines.push_back("PERIODIC: best period =" + g(best.period) + " power =" + g(best.power) +
                    " FAP =" + g(best.fap));
  }
  const HarmonicFitResult& f = r.fit;
  if (f.ok()) {
    lines.push_back(fmt::format("PERIODIC: fit at period ={} K = {} MESOR ={} amplitude ={} "
                                "acrophase ={} % rhythm ={} P ={}",
                                g(f.period), f.harmonics, g(f.mesor), g(f.amplitude),
                                g(f.acrophase), g(f.percent_rhythm), g(f.p_value)));
  } else {
    lines.push_back("PERIODIC: no fit: " + f.message);
  }
  return lines;
}

std::string periodic_answers(const PeriodicReport& r) {
  std::string text = "Periodic results for " + r.file_name + "\n";
  for (std::size_t i = 0; i < r.peaks.peaks.size(); ++i) {
    const PeriodicPeak& p = r.peaks.peaks[i];
    const std::string n = std::to_string(i + 1);
    text += " PERIOD(" + n + ") = " + g(p.period) + "  POWER(" + n + ") = " + g(p.power) +
            "  FAP(" + n + ") = " + g(p.fap) + "\n";
  }
  if (r.fit.ok()) {
    text += " MESOR = " + g(r.fit.mesor) + "  AMPLITUDE = " + g(r.fit.amplitude) +
            "  ACROPHASE = " + g(r.fit.acrophase) + "  NADIR = " + g(r.fit.nadir) + "\n";
  }
  return text;
}

}  // namespace tidemark::stats
