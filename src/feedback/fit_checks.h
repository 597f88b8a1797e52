#pragma once
// The checks of a fit request before any evaluation: options, data, bounds, the inputs'
// cover of the output times over the delay bounds.
#include <string>

#include "feedback/response_fit.h"

namespace tidemark::feedback {

struct FitCheck {
  ResponseFitStatus status = ResponseFitStatus::kOk;
  std::string message;
  bool ok() const { return status == ResponseFitStatus::kOk; }
};

FitCheck check_fit_request(const ResponseModel& model, const ResponseData& data,
                           const ResponseFitOptions& options);

}  // namespace tidemark::feedback
