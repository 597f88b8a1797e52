#pragma once
// A feedback scenario with known truth for the signal-response benchmarks: LH-like
// input series simulated by the pulse simulator (pulses about every 80 min, half-life
// 60 min, 5 % assay noise, sampled every 10 min from time 0), and an output made from
// them by the response model at known parameters, then given Gaussian noise of a
// fixed CV (its SEM). The output has 144 points from 150 to 1580 min, so delays up to
// 150 min stay inside the inputs.
#include <cmath>
#include <cstdint>
#include <optional>
#include <vector>

#include "core/random.h"
#include "feedback/response_model.h"
#include "pulse/decon_summary.h"
#include "pulse/simulate.h"

namespace tidemark::feedback::bench {

struct Scenario {
  ResponseModel model;
  ResponseData data;
  std::vector<double> truth;
};

inline Series simulated_lh(core::Random& random) {
  pulse::SimulationOptions sim;
  const double hl = 60, sd = 5;
  sim.fixed = {2 * std::log(2.0) / hl, 1.0, sd, hl};
  sim.draw = true;
  sim.random_events = {80, std::log10(3 / pulse::event_mass(0, sd)), 0.15};
  sim.samples = 160;
  sim.interval = 10;
  sim.noise_cv = 0.05;
  const pulse::SimulatedSeries s = pulse::simulate_series(sim, random);
  Series out;
  for (std::size_t j = 0; j < s.time.size(); ++j) {
    out.time.push_back(s.time[j]);
    out.value.push_back(s.concentration[j]);
  }
  return out;
}

inline Bounded range(double truth, double lower, double upper) {
  return {truth, lower, upper, true};
}

// One stimulatory input (delay 40 min, Gaussian spreading 5 min, efficacy 2, EC50 4,
// Hill 3), or two with a second, inhibitory one (exponential spreading); basal 0.2,
// half-life 30 min, initial 40. Starting values are the truth; the Hill slopes are held.
// None when the response model cannot be evaluated at the truth.
inline std::optional<Scenario> lh_driven(std::uint64_t seed, int inputs, double noise_cv) {
  core::Random random(seed);
  Scenario s;
  InputModel lh;
  lh.spreading = Spreading::kGaussian;
  lh.delay = range(40, 0, 120);
  lh.width = range(5, 1, 60);
  lh.efficacy = range(2, 0.1, 20);
  lh.ec50 = range(4, 0.5, 20);
  lh.hill = {3, 0.5, 5, false};
  s.model.inputs = {lh};
  s.truth = {40, 5, 2, 4, 3};
  s.data.inputs = {simulated_lh(random)};
  if (inputs == 2) {
    InputModel second;
    second.spreading = Spreading::kExponential;
    second.dose = DoseResponse::kInhibitory;
    second.delay = range(20, 0, 120);
    second.width = range(30, 1, 90);
    second.efficacy = range(1, 0.1, 20);
    second.ec50 = range(3, 0.5, 20);
    second.hill = {1, 0.5, 5, false};
    s.model.inputs.push_back(second);
    s.truth.insert(s.truth.end(), {20, 30, 1, 3, 1});
    s.data.inputs.push_back(simulated_lh(random));
  }
  s.model.basal = range(0.2, 0, 5);
  s.model.half_life = range(30, 5, 300);
  s.model.half_life_2 = {300, 300, 300, false};
  s.model.fraction_2 = {0, 0, 0, false};
  s.model.initial = range(40, 0, 400);
  s.truth.insert(s.truth.end(), {0.2, 30, 300, 0, 40});
  for (int j = 0; j < 144; ++j) s.data.time.push_back(150 + 10 * j);
  const Prediction p = predict(s.model, s.truth, s.data);
  if (!p.ok()) return std::nullopt;
  for (const double c : p.conc) {
    const double sem = noise_cv * c;
    s.data.conc.push_back(c + sem * random.gaussian12());
    s.data.sem.push_back(sem);
  }
  return s;
}

}  // namespace tidemark::feedback::bench
