#include "pulse/decon_quality.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "pulse/auto_decon.h"
#include "pulse/auto_init.h"
#include "pulse/cluster8.h"
#include "pulse/decon_summary.h"
#include "pulse/event_match.h"
#include "pulse/simulate.h"

namespace tidemark::pulse {

namespace {

constexpr double kSpan = 1440;  // minutes

double median(std::vector<double> v) {
  if (v.empty()) return 0;
  std::sort(v.begin(), v.end());
  const std::size_t m = v.size() / 2;
  return v.size() % 2 ? v[m] : 0.5 * (v[m - 1] + v[m]);
}

double relative_error(double estimate, double truth) {
  return std::fabs(estimate - truth) / std::fabs(truth);
}

struct Errors {
  std::vector<double> half_life, sd, basal, mass;
};

// Counts the events before `last` and pairs them.
EventMatch count(MethodQuality& q, const std::vector<double>& truth,
                 const std::vector<double>& found, double last, double tolerance) {
  std::vector<double> t, f;
  for (const double x : truth) if (x <= last) t.push_back(x);
  for (const double x : found) if (x <= last) f.push_back(x);
  EventMatch m = match_events(t, f, tolerance);
  q.truth += m.truth;
  q.found += m.found;
  q.matched += m.matched;
  return m;
}

}  // namespace

CellQuality measure_cell(const QualityCell& cell, core::Random& random) {
  CellQuality quality;
  Errors errors;
  for (int s = 0; s < cell.series; ++s) {
    const double hl = 40 + 50 * random.uniform();
    const double sd = 3 + 7 * random.uniform();
    SimulationOptions sim;
    sim.fixed = {2 * std::numbers::ln2 / hl, 1.0, sd, hl};
    sim.draw = true;
    sim.random_events = {80, std::log10(3 / event_mass(0, sd)), 0.15};
    sim.samples = static_cast<int>(kSpan / cell.interval);
    sim.interval = cell.interval;
    sim.noise_cv = cell.cv;
    const SimulatedSeries truth = simulate_series(sim, random);
    if (!truth.ok()) continue;
    std::vector<double> true_times, true_mass;
    for (int e = 0; e < truth.layout.events; ++e) {
      true_times.push_back(truth.parameters[truth.layout.position_index(e)]);
      true_mass.push_back(event_mass(truth.parameters[truth.layout.log_height_index(e)], sd));
    }
    const double last = double(truth.time.back()) - cell.interval;
    const double tolerance = std::max(cell.interval, 2.354 * sd);

    // AutoDecon: AutoInit's start, then the search.
    std::vector<double> c(truth.concentration.begin(), truth.concentration.end());
    std::vector<double> w(truth.sem.begin(), truth.sem.end());
    const DeconSeries series{truth.time, c, w};
    const AutoInitResult init = auto_init(truth.time, c, w);
    AutoInitResult start = init;
    if (init.status == AutoInitStatus::kFailed || init.status == AutoInitStatus::kInvalidInput) {
      ++quality.auto_init_failed;
      start = plain_start(truth.time, c);
    }
    AutoDeconOptions options;
    options.critical_p = cell.critical_p;
    const AutoDeconResult fit = auto_decon(series, auto_init_start(start), options);
    std::vector<double> found;
    if (fit.ok()) {
      const ModelVector& v = fit.fit.model;
      for (int e = 0; e < v.layout.events; ++e) found.push_back(v.values[v.layout.position_index(e)]);
      const EventMatch m = count(quality.auto_decon, true_times, found, last, tolerance);
      errors.half_life.push_back(relative_error(v.values[kHalfLife1], hl));
      errors.sd.push_back(relative_error(v.values[kSecretionSd], sd));
      errors.basal.push_back(relative_error(v.values[kBasal], sim.fixed[kBasal]));
      for (std::size_t t = 0; t < m.partner.size(); ++t) {
        if (m.partner[t] < 0) continue;
        const auto e = static_cast<int>(m.partner[t]);
        const double mass = event_mass(v.values[v.layout.log_height_index(e)], v.values[kSecretionSd]);
        errors.mass.push_back(relative_error(mass, true_mass[t]));
      }
    } else {
      ++quality.failed;
      count(quality.auto_decon, true_times, found, last, tolerance);
    }

    // Cluster8 with its defaults on the same series (its grid starts one interval in, so
    // the sample at time 0 is left out).
    std::vector<Cluster8Sample> samples;
    for (std::size_t i = 1; i < truth.time.size(); ++i) {
      samples.push_back({truth.concentration[i], truth.sem[i], truth.time[i], 1.0f});
    }
    const Cluster8Result peaks = run_cluster8(samples, {});
    std::vector<double> peak_times;
    if (peaks.ok()) {
      for (const Cluster8Peak& p : peaks.peaks) peak_times.push_back(peaks.grid.times[p.position]);
    }
    count(quality.cluster8, true_times, peak_times, last, tolerance);
  }
  quality.auto_decon.half_life_error = median(errors.half_life);
  quality.auto_decon.sd_error = median(errors.sd);
  quality.auto_decon.basal_error = median(errors.basal);
  quality.auto_decon.mass_error = median(errors.mass);
  return quality;
}

}  // namespace tidemark::pulse
