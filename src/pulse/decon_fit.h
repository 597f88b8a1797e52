#pragma once
// The weighted least-squares fit of the secretion-elimination model to a series, for a
// given set of events, by LSFIT2 with the model's closed-form derivatives.
#include <span>
#include <string>
#include <vector>

#include "pulse/model_layout.h"
#include "stats/lsfit2.h"

namespace tidemark::pulse {

// The series to fit: sample times, concentrations and their SDs (the weights are
// 1 / SD^2), all of one length. Every SD must be positive.
struct DeconSeries {
  std::span<const float> time;
  std::span<const double> concentration;
  std::span<const double> sd;
};

// A parameter vector with a fit (true) or hold (false) flag per entry.
struct ModelVector {
  ModelLayout layout;
  std::vector<double> values;
  std::vector<bool> free;

  // Removes event e (0-based) with its two entries and flags.
  void remove_event(int e);
  // Adds an event, keeping the events in order of position; returns its index.
  int insert_event(double position, double log_height, bool free_event = true);
};

struct DeconFitOptions {
  int max_iterations = 100;
  // The refits of the event test, which only need the SSR near the fit's minimum.
  int test_iterations = 25;
  // Converged when a step lowers the weighted SSR by less than this share of it.
  double relative_tolerance = 1e-7;
};

struct DeconFitResult {
  stats::Lsfit2Code code = stats::Lsfit2Code::kOk;
  std::string message;  // why the fit failed, in words; empty on success
  ModelVector model;    // the fitted vector; the start when the fit failed, the last
                        // iterate when the iteration limit ended it
  std::vector<double> last_values;  // the fit's last iterate (on failure too)
  std::vector<double> standard_errors;  // per entry; 0 for held entries
  double sum_of_squares = 0;  // weighted: sum ((c_i - C(t_i)) / sd_i)^2
  int points = 0;
  int fitted = 0;     // free entries
  int iterations = 0;

  bool ok() const { return code == stats::Lsfit2Code::kOk; }
  // A fit ended by its iteration limit still holds its best vector and SSR: usable as a
  // step of a search, reported with its code.
  bool usable() const { return ok() || code == stats::Lsfit2Code::kNoConvergence; }
  int degrees_of_freedom() const { return points - fitted; }
  // The weighted residual variance SSR / (N - p); 0 without degrees of freedom.
  double variance() const {
    return degrees_of_freedom() > 0 ? sum_of_squares / degrees_of_freedom() : 0.0;
  }
};

// Minimises the weighted sum of squares over the free entries of `start`. A trial
// vector outside the model's region counts as a failed step. The result keeps the start
// values when the fit fails, with the code and message of LSFIT2 (kModelFailed also
// when the start itself cannot be evaluated).
DeconFitResult fit_model(const DeconSeries& series, const ModelVector& start,
                         const DeconFitOptions& options = {});

// The weighted sum of squares of `model` on `series`; false when it cannot be evaluated.
bool weighted_sum_of_squares(const DeconSeries& series, const ModelVector& model, double& ssr);

}  // namespace tidemark::pulse
