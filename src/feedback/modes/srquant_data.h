#pragma once
// The data sets of an SRQuant calculation as the kernel takes them.
//
// Each data set gives the points of its crop range whose time and concentration are not
// missing and whose replicate count is not 0; the times must increase. The output's
// SEMs weight the fit when every used point has a positive SEM; otherwise every point
// has SEM 1 (equal weights), and the listing says so. An input is used as it stands:
// the kernel interpolates it linearly between its samples.
//
// An input delayed by D reaches output time t only when t - D lies within the input's
// samples; output points that some input cannot reach at its largest delay (or beyond
// its last sample at its smallest) are left out of the fit and counted (keep_reach).
#include <string>
#include <vector>

#include "data/store.h"
#include "feedback/response_model.h"

namespace tidemark::feedback {

// One data set as the calculation used it.
struct SeriesUse {
  int number = 0;  // 1-based, as the dialog shows it
  std::string file_name, handle, header;
  int used = 0, missing = 0, unreplicated = 0;
};

struct ResponseSeries {
  ResponseData data;
  SeriesUse output;
  std::vector<SeriesUse> inputs;
  bool sem_weights = false;
  int early = 0, late = 0;  // output points outside the inputs' reach, left out
  std::string problem;      // why the data sets cannot be used; empty when they can
  bool ok() const { return problem.empty(); }
};

// Reads the output data set and the input data sets (1-based numbers). Refused: a number
// that names no data set, an input that is the output's own data set, times that do not
// increase.
ResponseSeries read_response_series(const data::Store& store, int output,
                                    const std::vector<int>& inputs);

// Leaves out the output points that the inputs do not reach with the delays `model`
// allows (a held delay at its start); the problem when none is left.
void keep_reach(ResponseSeries& series, const ResponseModel& model);

}  // namespace tidemark::feedback
