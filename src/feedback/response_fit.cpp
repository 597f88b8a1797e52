// The fit of a response model: checks, then the swarm and/or a local method over the
// free parameters (the others stay at their starting values), then the result at the
// best point found.
#include "feedback/response_fit.h"

#include <cmath>
#include <limits>
#include <vector>

#include "feedback/fit_checks.h"
#include "feedback/fit_criterion.h"
#include "feedback/levenberg_marquardt.h"
#include "feedback/nelder_mead.h"
#include "feedback/particle_swarm.h"

namespace tidemark::feedback {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// The free parameters (fitted, with room between their bounds) and the map between
// their values and the whole parameter vector.
struct FreeParameters {
  std::vector<std::size_t> index;
  std::vector<double> start, lower, upper;
  std::vector<double> base;  // the whole vector at the starting values

  explicit FreeParameters(const ResponseModel& model) {
    const std::vector<Bounded> bounds = parameter_bounds(model);
    for (std::size_t j = 0; j < bounds.size(); ++j) {
      base.push_back(bounds[j].start);
      if (!bounds[j].fit || bounds[j].lower == bounds[j].upper) continue;
      index.push_back(j);
      start.push_back(bounds[j].start);
      lower.push_back(bounds[j].lower);
      upper.push_back(bounds[j].upper);
    }
  }

  std::vector<double> whole(std::span<const double> x) const {
    std::vector<double> p = base;
    for (std::size_t k = 0; k < index.size(); ++k) p[index[k]] = x[k];
    return p;
  }
};

// (prediction - y) / SEM at every output point; false where the model fails.
bool standardised_residuals(const ResponseModel& model, const ResponseData& data,
                            std::span<const double> p, std::span<double> z) {
  const Prediction prediction = predict(model, p, data);
  if (!prediction.ok()) return false;
  for (std::size_t i = 0; i < z.size(); ++i) {
    z[i] = (prediction.conc[i] - data.conc[i]) / data.sem[i];
  }
  return true;
}

// The local methods run on the calling thread: every 100 evaluations they report to the
// progress callback (evaluations done out of the limit) and stop when it answers false;
// once cancelled, every further evaluation fails at once, which ends either method.
struct LocalProgress {
  const core::ParallelOptions& parallel;
  long limit = 0;
  long count = 0;
  bool cancelled = false;

  bool go_on() {
    if (!cancelled && parallel.progress && ++count % 100 == 0 && !parallel.progress(count, limit)) {
      cancelled = true;
    }
    return !cancelled;
  }
};

bool ends_with_lm(Optimizer o) {
  return o == Optimizer::kLevenbergMarquardt || o == Optimizer::kSwarmThenLevenbergMarquardt;
}

}  // namespace

ResponseFitResult fit_response(const ResponseModel& model, const ResponseData& data,
                               const ResponseFitOptions& options) {
  ResponseFitResult result;
  if (FitCheck check = check_fit_request(model, data, options); !check.ok()) {
    result.status = check.status;
    result.message = std::move(check.message);
    return result;
  }
  const FreeParameters free(model);
  if (free.index.empty()) {
    result.status = ResponseFitStatus::kNothingToFit;
    result.message = "every fitted parameter has equal lower and upper bounds: nothing can move";
    return result;
  }
  const std::size_t n = data.time.size();
  const Objective objective = [&](std::span<const double> x) {
    std::vector<double> z(n);
    if (!standardised_residuals(model, data, free.whole(x), z)) return kInf;
    return criterion_value(options.criterion, z);
  };

  std::vector<double> x = free.start;
  std::vector<double> errors(free.index.size(), kNaN);
  const Optimizer o = options.optimizer;
  if (o == Optimizer::kSwarm || o == Optimizer::kSwarmThenNelderMead ||
      o == Optimizer::kSwarmThenLevenbergMarquardt) {
    const SearchResult swarm = particle_swarm(
        objective, free.start, free.lower, free.upper,
        {options.swarm_size, options.iterations, options.seed, options.parallel});
    result.evaluations += swarm.evaluations;
    if (!swarm.complete) {
      result.status = ResponseFitStatus::kCancelled;
      result.message = "the fit was cancelled";
      return result;
    }
    x = swarm.best;
  }
  LocalProgress local{options.parallel, options.max_evaluations};
  if (o == Optimizer::kNelderMead || o == Optimizer::kSwarmThenNelderMead) {
    const Objective watched = [&](std::span<const double> v) {
      return local.go_on() ? objective(v) : kInf;
    };
    const SearchResult nm = nelder_mead(watched, x, free.lower, free.upper,
                                            {options.max_evaluations, options.tolerance, options.tolerance});
    result.evaluations += nm.evaluations;
    x = nm.best;
    if (!nm.complete) {
      result.status = ResponseFitStatus::kFitFailed;
      result.message = "Nelder-Mead did not converge within its evaluations";
    }
  }
  if (ends_with_lm(o)) {
    const Residuals residuals = [&](std::span<const double> v, std::span<double> z) {
      return local.go_on() && standardised_residuals(model, data, free.whole(v), z);
    };
    const LevenbergMarquardtResult lm = levenberg_marquardt(
        residuals, n, x, free.lower, free.upper, {options.max_evaluations, options.tolerance});
    result.evaluations += lm.evaluations;
    x = lm.best;
    errors = lm.standard_errors;
    if (!lm.ok) {
      result.status = ResponseFitStatus::kFitFailed;
      result.message = "Levenberg-Marquardt: " + lm.message;
    }
  }

  if (local.cancelled) {
    result.status = ResponseFitStatus::kCancelled;
    result.message = "the fit was cancelled";
    return result;
  }
  result.values = free.whole(x);
  result.standard_errors.assign(result.values.size(), kNaN);
  for (std::size_t k = 0; k < free.index.size(); ++k) {
    result.standard_errors[free.index[k]] = errors[k];
  }
  result.prediction = predict(model, result.values, data);
  if (!result.prediction.ok()) {
    result.status = ResponseFitStatus::kFitFailed;
    result.message = "no parameter values at which the model can be evaluated were found: " +
                     result.prediction.error;
    return result;
  }
  std::vector<double> z(n);
  for (std::size_t i = 0; i < n; ++i) {
    z[i] = (result.prediction.conc[i] - data.conc[i]) / data.sem[i];
  }
  result.criterion = criterion_value(options.criterion, z);
  result.points = static_cast<int>(n);
  result.free_parameters = static_cast<int>(free.index.size());
  const InformationCriteria ic = information_criteria(options.criterion, result.criterion,
                                                      result.points, result.free_parameters);
  result.aic = ic.aic;
  result.bic = ic.bic;
  return result;
}

}  // namespace tidemark::feedback
