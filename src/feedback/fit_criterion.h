#pragma once
// The criteria a response fit minimises, over the standardised residuals
// z_i = (y_i - prediction_i) / SEM_i, and the information criteria that compare fits.
//
//   least squares   Q = sum z_i^2
//   least absolute  Q = sum |z_i|
//   min-max         Q = max |z_i|
//
// AIC and BIC are -2 log L + 2k and -2 log L + k ln n (k free parameters, n points),
// with the maximised log-likelihood of the error law each criterion is the estimator of,
// dropping the terms that depend on n alone:
//   least squares   Gaussian errors of common scale:  -2 log L = n ln(Q / n)
//   least absolute  Laplace errors of common scale:   -2 log L = 2n ln(Q / n)
//   min-max         uniform errors on +/- Q:          -2 log L = 2n ln(Q)
// so values are comparable only between fits of one data set under one criterion.
#include <span>

#include "feedback/response_fit.h"

namespace tidemark::feedback {

double criterion_value(Criterion criterion, std::span<const double> standardised);

struct InformationCriteria {
  double aic = 0, bic = 0;
};

InformationCriteria information_criteria(Criterion criterion, double value, int points,
                                         int free_parameters);

}  // namespace tidemark::feedback
