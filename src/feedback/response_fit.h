#pragma once
// The fit of a ResponseModel to a response series under one of three criteria, by a
// particle swarm, Nelder-Mead, Levenberg-Marquardt or a chain of the swarm and a local
// method started from its best point.
//
//   ResponseFitOptions options;            // least squares, swarm then LM
//   options.seed = session_seed;
//   const ResponseFitResult fit = fit_response(model, data, options);
//   if (!fit.ok()) report(fit.message);
#include <cstdint>
#include <string>
#include <vector>

#include "core/parallel.h"
#include "feedback/response_model.h"

namespace tidemark::feedback {

enum class Criterion { kLeastSquares, kLeastAbsolute, kMinMax };
enum class Optimizer {
  kSwarm,
  kNelderMead,
  kLevenbergMarquardt,
  kSwarmThenNelderMead,
  kSwarmThenLevenbergMarquardt
};

struct ResponseFitOptions {
  Criterion criterion = Criterion::kLeastSquares;
  Optimizer optimizer = Optimizer::kSwarmThenLevenbergMarquardt;
  int swarm_size = 40;
  int iterations = 200;          // swarm iterations
  int max_evaluations = 20000;   // of the local method
  double tolerance = 1e-10;      // relative change of the criterion that ends a local method
  std::uint64_t seed = 1;        // the session's SEED
  core::ParallelOptions parallel{};  // threads and the progress/cancel callback
};

enum class ResponseFitStatus {
  kOk = 0,
  kTooFewPoints,      // fewer usable output points than free parameters + 1
  kInputsDoNotCover,  // an input's times do not cover the output's times (after the delay bounds)
  kMismatchedInputs,  // inputs count differs from the model's, or an input has < 2 points
  kBadBounds,         // lower > upper, or start outside [lower, upper], or a bound not finite
  kNothingToFit,      // every parameter held
  kCriterionNotLeastSquares,  // Levenberg-Marquardt (alone or in a chain) with another criterion
  kBadOption,  // swarm size, iterations, eliminations, input count out of range
  kFitFailed,  // the local method ended with a failure code
  kCancelled,
  kBadData,  // a time, value or SEM not finite, times not increasing, or an SEM not positive
};

struct ResponseFitResult {
  ResponseFitStatus status = ResponseFitStatus::kOk;
  std::string message;                  // says why in words, naming the parameter / input
  std::vector<double> values;           // parameter vector, layout of parameter_names()
  std::vector<double> standard_errors;  // from the LM covariance; NaN where none
  double criterion = 0;                 // its value at `values`
  double aic = 0, bic = 0;
  int points = 0, free_parameters = 0;
  long evaluations = 0;
  Prediction prediction;  // at `values`
  bool ok() const { return status == ResponseFitStatus::kOk; }
};

ResponseFitResult fit_response(const ResponseModel& model, const ResponseData& data,
                               const ResponseFitOptions& options);

}  // namespace tidemark::feedback
