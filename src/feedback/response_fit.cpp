#include "feedback/response_fit.h"

namespace tidemark::feedback {

ResponseFitResult fit_response(const ResponseModel&, const ResponseData&,
                               const ResponseFitOptions&) {
  ResponseFitResult result;
  result.status = ResponseFitStatus::kFitFailed;
  result.message = "the fit is not available yet";
  return result;
}

}  // namespace tidemark::feedback
