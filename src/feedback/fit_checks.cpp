#include "feedback/fit_checks.h"

#include <cmath>
#include <vector>

#include <fmt/format.h>

#include "feedback/time_grid.h"

namespace tidemark::feedback {
namespace {

constexpr int kMaxSwarmSize = 10'000;
constexpr int kMaxIterations = 1'000'000;

FitCheck refuse(ResponseFitStatus status, std::string message) {
  return {status, std::move(message)};
}

bool uses_swarm(Optimizer o) {
  return o == Optimizer::kSwarm || o == Optimizer::kSwarmThenNelderMead ||
         o == Optimizer::kSwarmThenLevenbergMarquardt;
}

bool uses_lm(Optimizer o) {
  return o == Optimizer::kLevenbergMarquardt || o == Optimizer::kSwarmThenLevenbergMarquardt;
}

FitCheck check_options(const ResponseModel& model, const ResponseFitOptions& options) {
  const auto inputs = static_cast<int>(model.inputs.size());
  if (inputs < 1 || inputs > kMaxInputs) {
    return refuse(ResponseFitStatus::kBadOption,
                  fmt::format("the model has {} inputs; it takes 1 to {}", inputs, kMaxInputs));
  }
  if (model.eliminations != 1 && model.eliminations != 2) {
    return refuse(ResponseFitStatus::kBadOption,
                  fmt::format("{} eliminations asked for; there are 1 or 2", model.eliminations));
  }
  if (uses_swarm(options.optimizer)) {
    if (options.swarm_size < 2 || options.swarm_size > kMaxSwarmSize) {
      return refuse(ResponseFitStatus::kBadOption,
                    fmt::format("a swarm of {} particles; it takes 2 to {}", options.swarm_size,
                                kMaxSwarmSize));
    }
    if (options.iterations < 1 || options.iterations > kMaxIterations) {
      return refuse(ResponseFitStatus::kBadOption,
                    fmt::format("{} swarm iterations; it takes 1 to {}", options.iterations,
                                kMaxIterations));
    }
  }
  if (options.max_evaluations < 1) {
    return refuse(ResponseFitStatus::kBadOption,
                  "the local method needs at least one evaluation");
  }
  if (!(options.tolerance >= 0) || !std::isfinite(options.tolerance)) {
    return refuse(ResponseFitStatus::kBadOption, "the tolerance must be a number not below 0");
  }
  if (uses_lm(options.optimizer) && options.criterion != Criterion::kLeastSquares) {
    return refuse(ResponseFitStatus::kCriterionNotLeastSquares,
                  "Levenberg-Marquardt minimises a sum of squares: choose the least-squares "
                  "criterion, or the swarm or Nelder-Mead for this criterion");
  }
  return {};
}

// Finite values, increasing times; `what` names the series in messages.
FitCheck check_series(const std::vector<double>& time, const std::vector<double>& value,
                      const std::string& what) {
  for (std::size_t j = 0; j < time.size(); ++j) {
    if (!std::isfinite(time[j]) || !std::isfinite(value[j])) {
      return refuse(ResponseFitStatus::kBadData,
                    fmt::format("{} has a value that is not a number at point {}", what, j + 1));
    }
    if (j > 0 && !(time[j] > time[j - 1])) {
      return refuse(ResponseFitStatus::kBadData,
                    fmt::format("the times of {} do not increase at point {} ({:g} after {:g})",
                                what, j + 1, time[j], time[j - 1]));
    }
  }
  return {};
}

FitCheck check_data(const ResponseModel& model, const ResponseData& data) {
  if (data.inputs.size() != model.inputs.size()) {
    return refuse(ResponseFitStatus::kMismatchedInputs,
                  fmt::format("the model has {} inputs but {} input series were given",
                              model.inputs.size(), data.inputs.size()));
  }
  if (data.conc.size() != data.time.size() || data.sem.size() != data.time.size()) {
    return refuse(ResponseFitStatus::kMismatchedInputs,
                  fmt::format("the output has {} times, {} concentrations and {} SEMs",
                              data.time.size(), data.conc.size(), data.sem.size()));
  }
  if (data.time.empty()) return refuse(ResponseFitStatus::kTooFewPoints, "the output has no points");
  if (FitCheck c = check_series(data.time, data.conc, "the output"); !c.ok()) return c;
  for (std::size_t j = 0; j < data.sem.size(); ++j) {
    if (!(data.sem[j] > 0) || !std::isfinite(data.sem[j])) {
      return refuse(ResponseFitStatus::kBadData,
                    fmt::format("the output's SEM at point {} is not a positive number", j + 1));
    }
  }
  for (std::size_t i = 0; i < data.inputs.size(); ++i) {
    const Series& input = data.inputs[i];
    const std::string name = fmt::format("input {}", i + 1);
    if (input.time.size() != input.value.size()) {
      return refuse(ResponseFitStatus::kMismatchedInputs,
                    fmt::format("{} has {} times but {} values", name, input.time.size(),
                                input.value.size()));
    }
    if (input.time.size() < 2) {
      return refuse(ResponseFitStatus::kMismatchedInputs,
                    fmt::format("{} has {} points; it needs at least 2", name, input.time.size()));
    }
    if (FitCheck c = check_series(input.time, input.value, name); !c.ok()) return c;
  }
  return {};
}

// Where the model is defined: widths not negative; EC50, Hill and half-lives positive;
// the fraction within [0, 1]. Empty when x is such a value of parameter j.
std::string outside_domain(const ResponseModel& model, int j, double x) {
  const int tail = tail_offset(model);
  if (j < tail) {
    const int slot = j % kPerInput;
    if (slot == 1 && x < 0) return "must not be negative";
    if ((slot == 3 || slot == 4) && x <= 0) return "must be positive";
    return {};
  }
  if ((j == tail + 1 || j == tail + 2) && x <= 0) return "must be positive";
  if (j == tail + 3 && (x < 0 || x > 1)) return "must lie in 0 .. 1";
  return {};
}

FitCheck check_bounds(const ResponseModel& model) {
  const std::vector<std::string> names = parameter_names(model);
  const std::vector<Bounded> bounds = parameter_bounds(model);
  int free = 0;
  for (std::size_t j = 0; j < bounds.size(); ++j) {
    const Bounded& b = bounds[j];
    const std::string& name = names[j];
    if (!std::isfinite(b.start)) {
      return refuse(ResponseFitStatus::kBadBounds,
                    fmt::format("the starting value of {} is not a number", name));
    }
    const int jj = static_cast<int>(j);
    if (!b.fit) {
      if (std::string why = outside_domain(model, jj, b.start); !why.empty()) {
        return refuse(ResponseFitStatus::kBadBounds,
                      fmt::format("{} {} (it is {:g})", name, why, b.start));
      }
      continue;
    }
    ++free;
    if (!std::isfinite(b.lower) || !std::isfinite(b.upper)) {
      return refuse(ResponseFitStatus::kBadBounds,
                    fmt::format("a bound of {} is not a finite number", name));
    }
    if (b.lower > b.upper) {
      return refuse(ResponseFitStatus::kBadBounds,
                    fmt::format("the lower bound of {} ({:g}) is above its upper bound ({:g})",
                                name, b.lower, b.upper));
    }
    if (b.start < b.lower || b.start > b.upper) {
      return refuse(ResponseFitStatus::kBadBounds,
                    fmt::format("the starting value of {} ({:g}) is outside its bounds {:g} .. {:g}",
                                name, b.start, b.lower, b.upper));
    }
    for (const double x : {b.lower, b.upper}) {
      if (std::string why = outside_domain(model, jj, x); !why.empty()) {
        return refuse(ResponseFitStatus::kBadBounds,
                      fmt::format("{} {}: its bounds are {:g} .. {:g}", name, why, b.lower, b.upper));
      }
    }
  }
  if (free == 0) {
    return refuse(ResponseFitStatus::kNothingToFit,
                  "every parameter is held: set at least one to be fitted");
  }
  return {};
}

}  // namespace

FitCheck check_fit_request(const ResponseModel& model, const ResponseData& data,
                           const ResponseFitOptions& options) {
  if (FitCheck c = check_options(model, options); !c.ok()) return c;
  if (FitCheck c = check_data(model, data); !c.ok()) return c;
  if (FitCheck c = check_bounds(model); !c.ok()) return c;
  for (std::size_t i = 0; i < model.inputs.size(); ++i) {
    const Bounded& delay = model.inputs[i].delay;
    const double low = delay.fit ? delay.lower : delay.start;
    const double high = delay.fit ? delay.upper : delay.start;
    if (std::string gap = coverage_gap(data, i, low, high); !gap.empty()) {
      return refuse(ResponseFitStatus::kInputsDoNotCover, gap);
    }
  }
  int free = 0;
  for (const Bounded& b : parameter_bounds(model)) free += b.fit ? 1 : 0;
  if (static_cast<int>(data.time.size()) < free + 1) {
    return refuse(ResponseFitStatus::kTooFewPoints,
                  fmt::format("{} output points for {} fitted parameters: at least {} are needed",
                              data.time.size(), free, free + 1));
  }
  return {};
}

}  // namespace tidemark::feedback
