#pragma once
// The graph of an SRQuant fit, four panels from the top: the output's data (the common
// options of every mode's graph) with the model's prediction over it ("Show Prediction");
// the residuals, divided by the SEM when the fit was weighted ("Show Residuals"); the
// input series; and each input's dose-response curve on a log concentration axis, solid
// over the range of its values and dotted beyond them out to EC50 / 2 .. 2 EC50, its EC50
// marked ("Show EC50"). The time panels share one time range; input i has one colour in
// every panel.
#include <string>

#include "data/dataset.h"
#include "feedback/modes/srquant_run.h"

namespace tidemark::feedback {

// Points of the prediction per sampling interval, and of each dose-response curve.
inline constexpr int kPredictionSteps = 8;
inline constexpr int kCurvePoints = 120;

// The graph source of a successful fit; `output` is the run's output data set.
std::string srquant_graph(const SRQuantRun& run, const data::DataSet& output);

}  // namespace tidemark::feedback
