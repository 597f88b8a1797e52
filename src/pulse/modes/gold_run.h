#pragma once
// One Gold_Method calculation: what was deconvolved and how (GoldRunInput), and what
// came out (GoldRunOutput). The listing and the graph are written from it.
#include <string>
#include <vector>

#include "pulse/gold.h"

namespace tidemark::pulse {

struct GoldRunInput {
  std::string file_name;
  std::string handle;
  std::string concentration_header;  // the data set's, for the graph's y axis
  double half_life = 0;
  double secretion_sd = 0;
  bool with_shape = false;  // kernel: elimination convolved with the secretion shape
  double interval = 0;      // the sampling interval, Gold's scale h
  // The samples of the crop range; `used` samples take part in the deconvolution.
  std::vector<float> time;
  std::vector<float> concentration;
  std::vector<float> sd;
  std::vector<int> used;
  std::vector<double> event_positions;  // the data set's secretion events, if any
};

struct GoldRunOutput {
  int first_lag = 0;  // the kernel's lags applied
  int last_lag = 0;
  GoldResult result;
};

struct GoldRun {
  GoldRunInput input;
  GoldRunOutput output;
};

}  // namespace tidemark::pulse
