// The model's prediction: inputs on a uniform fine grid, their dose-responses combined
// into the secretion, the secretion eliminated exactly between grid points.
#include "feedback/response_model.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include <fmt/format.h>

#include "feedback/elimination.h"
#include "feedback/input_signal.h"
#include "feedback/time_grid.h"

namespace tidemark::feedback {
namespace {

struct Elimination {
  double k1 = 0, k2 = 0, fraction_2 = 0;
};

// The parameters that must be positive or within [0, 1] for the model to mean
// anything; empty when all are usable.
std::string unusable_parameter(const ResponseModel& model, std::span<const double> p) {
  const std::vector<std::string> names = parameter_names(model);
  for (std::size_t j = 0; j < p.size(); ++j) {
    if (!std::isfinite(p[j])) return fmt::format("{} is not a finite number", names[j]);
  }
  for (std::size_t i = 0; i < model.inputs.size(); ++i) {
    const int o = input_offset(static_cast<int>(i));
    if (p[o + 1] < 0) return fmt::format("{} is negative", names[o + 1]);
    if (p[o + 3] <= 0) return fmt::format("{} is not positive", names[o + 3]);
    if (p[o + 4] <= 0) return fmt::format("{} is not positive", names[o + 4]);
  }
  const int t = tail_offset(model);
  if (p[t + 1] <= 0) return fmt::format("{} is not positive", names[t + 1]);
  if (model.eliminations == 2) {
    if (p[t + 2] <= 0) return fmt::format("{} is not positive", names[t + 2]);
    if (p[t + 3] < 0 || p[t + 3] > 1) return fmt::format("{} is outside 0 .. 1", names[t + 3]);
  }
  return {};
}

// C at every grid point from the secretion there, one compartment at rate k holding
// `share` of the initial concentration and of the secretion.
void add_compartment(std::span<const double> secretion, double step, double k, double share,
                     double initial, std::span<double> conc) {
  const EliminationStep update(k, step);
  double c = share * initial;
  conc[0] += c;
  for (std::size_t j = 1; j < secretion.size(); ++j) {
    c = update.next(c, share * secretion[j - 1], share * secretion[j]);
    conc[j] += c;
  }
}

// The value at time t of a piecewise-linear function given at the grid points.
double on_grid(std::span<const double> values, const TimeGrid& grid, double t) {
  const double pos = (t - grid.first) / grid.step;
  const auto j = std::min(static_cast<std::size_t>(std::max(pos, 0.0)), values.size() - 1);
  if (j + 1 >= values.size()) return values.back();
  const double w = pos - static_cast<double>(j);
  return values[j] + w * (values[j + 1] - values[j]);
}

// The concentration at output time t: from the grid point at or before t, a part step
// with the secretion rising linearly to its value at t.
double conc_at(std::span<const double> conc_grid, std::span<const double> secretion,
               const TimeGrid& grid, const Elimination& e, double t, std::span<const double> c1) {
  const double pos = (t - grid.first) / grid.step;
  auto j = static_cast<std::size_t>(std::max(std::floor(pos + 1e-9), 0.0));
  j = std::min(j, secretion.size() - 1);
  const double dt = t - grid.at(j);
  if (dt <= 1e-9 * grid.step) return conc_grid[j];
  const double s_t = on_grid(secretion, grid, t);
  const double c1_j = c1[j];
  const double c2_j = conc_grid[j] - c1_j;
  const EliminationStep first(e.k1, dt);
  double c = first.next(c1_j, (1 - e.fraction_2) * secretion[j], (1 - e.fraction_2) * s_t);
  if (e.fraction_2 > 0) {
    const EliminationStep second(e.k2, dt);
    c += second.next(c2_j, e.fraction_2 * secretion[j], e.fraction_2 * s_t);
  }
  return c;
}

}  // namespace

double dose_response(const InputModel& input, double efficacy, double ec50, double hill,
                     double x) {
  // r = (x / EC50)^n; stimulatory E r / (1 + r), inhibitory E / (1 + r); x <= 0 is no drive.
  const double r = x > 0 ? std::pow(x / ec50, hill) : 0.0;
  if (std::isinf(r)) return input.dose == DoseResponse::kStimulatory ? efficacy : 0.0;
  return input.dose == DoseResponse::kStimulatory ? efficacy * r / (1 + r)
                                                  : efficacy / (1 + r);
}

Prediction predict(const ResponseModel& model, std::span<const double> p,
                   const ResponseData& data) {
  Prediction out;
  if (static_cast<int>(p.size()) != parameter_count(model) ||
      data.inputs.size() != model.inputs.size() || data.time.empty()) {
    out.error = "the parameters, inputs or times do not match the model";
    return out;
  }
  if (std::string bad = unusable_parameter(model, p); !bad.empty()) {
    out.error = std::move(bad);
    return out;
  }
  for (std::size_t i = 0; i < model.inputs.size(); ++i) {
    const double delay = p[input_offset(static_cast<int>(i))];
    if (std::string gap = coverage_gap(data, i, delay, delay); !gap.empty()) {
      out.error = std::move(gap);
      return out;
    }
  }
  const TimeGrid grid = make_time_grid(data);
  const std::size_t n = grid.count;
  const int t = tail_offset(model);
  std::vector<double> secretion(n, model.combination == Combination::kProduct ? 1.0 : 0.0);
  std::vector<std::vector<double>> drive_grid(model.inputs.size(), std::vector<double>(n));
  for (std::size_t i = 0; i < model.inputs.size(); ++i) {
    const InputModel& input = model.inputs[i];
    const int o = input_offset(static_cast<int>(i));
    std::vector<double>& drive = drive_grid[i];
    spread_input(data.inputs[i], input.spreading, p[o + 1], grid.first - p[o], grid.step, drive);
    for (std::size_t j = 0; j < n; ++j) {
      drive[j] = dose_response(input, p[o + 2], p[o + 3], p[o + 4], drive[j]);
      if (model.combination == Combination::kProduct) {
        secretion[j] *= drive[j];
      } else {
        secretion[j] += drive[j];
      }
    }
  }
  for (double& s : secretion) s += p[t];

  Elimination e;
  e.k1 = std::log(2.0) / p[t + 1];
  if (model.eliminations == 2) {
    e.k2 = std::log(2.0) / p[t + 2];
    e.fraction_2 = p[t + 3];
  }
  std::vector<double> c1(n, 0.0);
  add_compartment(secretion, grid.step, e.k1, 1 - e.fraction_2, p[t + 4], c1);
  std::vector<double> conc = c1;
  if (e.fraction_2 > 0) add_compartment(secretion, grid.step, e.k2, e.fraction_2, p[t + 4], conc);

  out.conc.reserve(data.time.size());
  out.secretion.reserve(data.time.size());
  out.drive.assign(model.inputs.size(), {});
  for (const double time : data.time) {
    out.conc.push_back(conc_at(conc, secretion, grid, e, time, c1));
    out.secretion.push_back(on_grid(secretion, grid, time));
    for (std::size_t i = 0; i < model.inputs.size(); ++i) {
      out.drive[i].push_back(on_grid(drive_grid[i], grid, time));
    }
  }
  return out;
}

}  // namespace tidemark::feedback
