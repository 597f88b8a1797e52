#include "pulse/modes/decon_listing.h"

#include <fmt/format.h>

#include <cmath>

#include "core/fortran_format.h"
#include "pulse/decon_summary.h"

namespace tidemark::pulse {

namespace {

constexpr const char* kSourceNames[] = {"AutoInit", "Use Cluster8 Results", "Data Set Events",
                                        "None"};

std::string g(double v) {
  return core::format_g15_5(v);
}

}  // namespace

std::string decon_listing(const DeconRun& run) {
  const DeconFitResult& fit = run.result.fit;
  const ModelVector& v = fit.model;
  std::string out = fmt::format(" {} Deconvolution\n", run.mode_name);
  out += fmt::format(" File: {}\n Handle: {}\n", run.file_name, run.handle);
  out += fmt::format(" Samples = {}\n", core::format_i(static_cast<long long>(run.time.size()), 5));
  out += fmt::format(" Starting Events: {}\n", kSourceNames[static_cast<int>(run.source)]);
  out += fmt::format(" Critical P = {}\n", g(run.critical_p));
  if (run.auto_init_ran) {
    if (run.init.status == AutoInitStatus::kOk || run.init.status == AutoInitStatus::kNoEvents) {
      out += fmt::format(" {}{}\n", kAutoInitSdLabel, g(run.init.sd));
      out += fmt::format(" {}{}\n", kAutoInitHlLabel, g(run.init.half_life));
      out += fmt::format(" AutoInit Events = {}\n",
                         core::format_i(static_cast<long long>(run.init.events.size()), 5));
    }
    if (!run.init.ok()) out += fmt::format(" {}\n", run.init.message);
    if (run.init.status == AutoInitStatus::kFailed || run.init.status == AutoInitStatus::kInvalidInput) {
      out += " AutoInit failed: the fit starts from the dialog's values without events\n";
    }
  }
  if (!run.refusal.empty()) {
    out += fmt::format("\n {}\n", run.refusal);
    return out;
  }
  if (run.result.final_fit_failed) {
    out += " The last fit with every free parameter failed; the results are those of the "
           "fit with SD and half-lives held\n";
  }
  out += fmt::format(" Fit Code = {}   Iterations = {}\n", stats::code_number(fit.code),
                     core::format_i(fit.iterations, 5));
  if (run.mode_name == "AutoDecon") {
    out += fmt::format(" Events Inserted = {}   Events Removed = {}\n",
                       core::format_i(run.result.insertions, 5), core::format_i(run.result.removals, 5));
    out += fmt::format(" Critical P per Event = {}\n",
                       g(event_critical_p(run.critical_p, v.layout.events)));
  }
  out += fmt::format(" Weighted Residual Variance = {}\n", g(fit.variance()));
  out += fmt::format(" Degrees of Freedom = {}\n", core::format_i(fit.degrees_of_freedom(), 5));

  out += "\n PARAMETER               VALUE     STD. ERROR\n";
  for (int j = 0; j < v.layout.first_event_index(); ++j) {
    const auto k = static_cast<std::size_t>(j);
    out += fmt::format(" {:<12}{}{}{}\n", parameter_name(v.layout, j), g(v.values[k]),
                       g(fit.standard_errors[k]), v.free[k] ? "" : "  held");
  }
  out += fmt::format(" {}{}{}\n", kHalfDurationLabel, g(half_duration(v.values[kSecretionSd])),
                     g(half_duration(fit.standard_errors[kSecretionSd])));

  out += "\n     #       POSITION   S.E.(POS.)      LogHeight    S.E.(LogH.)         HEIGHT"
         "           MASS  Half-Duration              P\n";
  const double sigma = v.values[kSecretionSd];
  for (int e = 0; e < v.layout.events; ++e) {
    const auto p = static_cast<std::size_t>(v.layout.position_index(e));
    const double l = v.values[p + 1];
    const double pv = e < static_cast<int>(run.result.p_values.size()) ? run.result.p_values[e] : 1.0;
    out += fmt::format("{}{}{}{}{}{}{}{}{}{}\n", core::format_i(e + 1, 6), g(v.values[p]),
                       g(fit.standard_errors[p]), g(l), g(fit.standard_errors[p + 1]),
                       g(std::pow(10.0, l)), g(event_mass(l, sigma)), g(half_duration(sigma)), g(pv),
                       v.free[p] ? "" : "  held");
  }
  const DeconSummary s = summarize(v.values, v.layout, run.time.front(), run.time.back());
  out += fmt::format("\n Number of Events = {}\n", core::format_i(s.events, 5));
  out += fmt::format(" Mean Interval = {}\n", g(s.mean_interval));
  out += fmt::format(" Basal Secretion = {}\n", g(s.basal_secretion));
  out += fmt::format(" Pulsatile Secretion = {}\n", g(s.pulsatile_secretion));
  return out;
}

}  // namespace tidemark::pulse
