#pragma once
// One SRQuant calculation: the series it read, the model and options it fitted with,
// what the user had set, and the fit. The listing, log lines, answers, summary cells and
// graph are written from it.
#include <string>
#include <vector>

#include "feedback/modes/srquant_data.h"
#include "feedback/response_fit.h"

namespace tidemark::feedback {

struct SRQuantRun {
  ResponseSeries series;
  ResponseModel model;
  ResponseFitOptions options;
  std::vector<std::string> user_set;  // the parameters whose values the user set
  ResponseFitResult fit;
};

}  // namespace tidemark::feedback
