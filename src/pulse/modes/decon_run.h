#pragma once
// One AutoDecon or Deconv calculation: the series fitted, where its starting values came
// from, and what came out. The listing, answers, summary row and graph are written from
// it, and it is what STORE_RESULTS keeps.
#include <string>
#include <vector>

#include "pulse/auto_decon.h"
#include "pulse/auto_init.h"

namespace tidemark::pulse {

// Where the starting events come from: the choices of the dialog's "Starting Events".
enum class EventSource { kAutoInit, kCluster8, kDataSet, kNone };

struct DeconRun {
  std::string mode_name;  // "AutoDecon" or "Deconv"
  std::string file_name;
  std::string handle;
  std::string concentration_header;  // the data set's, for the graph's y axis
  EventSource source = EventSource::kAutoInit;
  double critical_p = AutoDeconOptions{}.critical_p;
  // The samples fitted (the crop range's points with a concentration and a positive SD).
  std::vector<float> time;
  std::vector<double> concentration;
  std::vector<double> sd;
  bool auto_init_ran = false;
  AutoInitResult init;  // when auto_init_ran
  AutoDeconResult result;
  // Why the calculation was refused or its fit failed; empty when it ran through.
  std::string refusal;
};

}  // namespace tidemark::pulse
