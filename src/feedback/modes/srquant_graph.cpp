#include "feedback/modes/srquant_graph.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "graphics/common_options.h"
#include "graphics/plot_writer.h"

namespace tidemark::feedback {

namespace {

// The prediction on a grid kPredictionSteps times finer than the fitted points; the
// fit's own prediction at those points when the finer one cannot be made.
void write_prediction(graphics::PlotWriter& w, const SRQuantRun& run) {
  const ResponseData& d = run.series.data;
  ResponseData grid;
  grid.inputs = d.inputs;
  for (std::size_t i = 0; i + 1 < d.time.size(); ++i) {
    for (int s = 0; s < kPredictionSteps; ++s) {
      grid.time.push_back(d.time[i] + (d.time[i + 1] - d.time[i]) * s / kPredictionSteps);
    }
  }
  grid.time.push_back(d.time.back());
  const Prediction fine = predict(run.model, run.fit.values, grid);
  w.begin_option("Show Prediction", graphics::When::kChecked, true);
  if (fine.ok()) {
    w.series("Prediction", {.line = graphics::Dash::kSolid, .colour = graphics::kVermilion},
             grid.time, fine.conc);
  } else {
    w.series("Prediction", {.line = graphics::Dash::kSolid, .colour = graphics::kVermilion},
             d.time, run.fit.prediction.conc);
  }
  w.end_option();
}

void write_residuals(graphics::PlotWriter& w, const SRQuantRun& run) {
  const ResponseData& d = run.series.data;
  const std::vector<double>& p = run.fit.prediction.conc;
  std::vector<double> t, r;
  for (std::size_t i = 0; i < d.time.size() && i < p.size(); ++i) {
    t.push_back(d.time[i]);
    r.push_back((d.conc[i] - p[i]) / d.sem[i]);
  }
  w.panel("Residuals", 0.45);
  w.x_axis({.label = "Time"});
  w.y_axis({.label = run.series.sem_weights ? "Residual / SEM" : "Residual"});
  w.series("Zero", {.line = graphics::Dash::kDot, .colour = graphics::kBlack},
           std::vector<double>{d.time.front(), d.time.back()}, std::vector<double>{0, 0});
  w.begin_option("Show Residuals", graphics::When::kChecked, true);
  w.series("Residuals", {.symbol = graphics::Symbol::kCircle, .line = graphics::Dash::kSolid}, t,
           r);
  w.end_option();
}

void write_inputs(graphics::PlotWriter& w, const SRQuantRun& run) {
  w.panel("Inputs", 0.6);
  w.x_axis({.label = "Time"});
  w.y_axis({.label = "Concentration"});
  w.legend(graphics::Place::kTopRight);
  const ResponseData& d = run.series.data;
  for (std::size_t i = 0; i < d.inputs.size(); ++i) {
    w.series(run.series.inputs[i].handle,
             {.symbol = graphics::Symbol::kAuto, .line = graphics::Dash::kSolid}, d.inputs[i].time,
             d.inputs[i].value);
  }
}

// Each input's response E f(x) over the range of its positive values, log-spaced.
void write_dose_response(graphics::PlotWriter& w, const SRQuantRun& run) {
  w.panel("Dose-Response", 0.6);
  w.x_axis({.label = "Input Concentration", .scale = graphics::Scale::kLog});
  w.y_axis({.label = "Secretion Rate"});
  w.legend(graphics::Place::kTopLeft);
  const std::vector<double>& v = run.fit.values;
  std::vector<double> ec50_x, ec50_y;
  for (std::size_t i = 0; i < run.model.inputs.size(); ++i) {
    const InputModel& in = run.model.inputs[i];
    const auto at = static_cast<std::size_t>(input_offset(static_cast<int>(i)));
    const double efficacy = v[at + 2], ec50 = v[at + 3], hill = v[at + 4];
    double low = HUGE_VAL, high = 0;
    for (const double x : run.series.data.inputs[i].value) {
      if (x > 0) low = std::min(low, x);
      high = std::max(high, x);
    }
    if (!(low < high)) continue;
    low = std::min(low, ec50 / 2), high = std::max(high, ec50 * 2);
    std::vector<double> x, y;
    for (int k = 0; k <= kCurvePoints; ++k) {
      x.push_back(low * std::pow(high / low, static_cast<double>(k) / kCurvePoints));
      y.push_back(dose_response(in, efficacy, ec50, hill, x.back()));
    }
    w.series(run.series.inputs[i].handle, {.line = graphics::Dash::kAuto}, x, y);
    ec50_x.push_back(ec50);
    ec50_y.push_back(dose_response(in, efficacy, ec50, hill, ec50));
  }
  if (ec50_x.empty()) return;
  w.begin_option("Show EC50", graphics::When::kChecked, true);
  w.series("EC50", {.symbol = graphics::Symbol::kDiamond, .colour = graphics::kBlack}, ec50_x,
           ec50_y);
  w.end_option();
}

}  // namespace

std::string srquant_graph(const SRQuantRun& run, const data::DataSet& output) {
  graphics::PlotWriter w;
  w.page("Signal-Response Quantification");
  w.panel(output.handle);
  w.x_axis({.label = output.headers[data::kX].empty() ? "TIME" : output.headers[data::kX]});
  graphics::write_common_options(w, {.y_label = output.concentration_header(),
                                     .file_name = output.file_name,
                                     .handle = output.handle,
                                     .x = output.x(),
                                     .y = output.y(),
                                     .sd = output.dy()});
  if (!run.series.data.time.empty()) {
    write_prediction(w, run);
    write_residuals(w, run);
  }
  write_inputs(w, run);
  write_dose_response(w, run);
  return w.text();
}

}  // namespace tidemark::feedback
