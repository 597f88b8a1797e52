#include "feedback/modes/srquant_graph.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "core/missing.h"
#include "graphics/common_options.h"
#include "graphics/plot_writer.h"

namespace tidemark::feedback {

namespace {

// Input i's colour in every panel.
constexpr std::array<graphics::Colour, kMaxInputs> kInputColours{
    graphics::kBlue, graphics::kGreen, graphics::kOrange, graphics::kPurple, graphics::kSky};

// The time axis every time panel shares, so that they line up: the output's and the
// inputs' times.
graphics::AxisSpec time_axis(const SRQuantRun& run, const data::DataSet& output) {
  double low = HUGE_VAL, high = -HUGE_VAL;
  const auto take = [&](double t) {
    if (t > -9.9e34) low = std::min(low, t), high = std::max(high, t);
  };
  for (const float t : output.x()) take(t);
  for (const Series& in : run.series.data.inputs) {
    for (const double t : in.time) take(t);
  }
  graphics::AxisSpec axis{.label = output.headers[data::kX].empty() ? "TIME"
                                                                    : output.headers[data::kX]};
  if (low < high) axis.low = low, axis.high = high;
  return axis;
}

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

void write_residuals(graphics::PlotWriter& w, const SRQuantRun& run,
                     const graphics::AxisSpec& time) {
  const ResponseData& d = run.series.data;
  const std::vector<double>& p = run.fit.prediction.conc;
  std::vector<double> t, r;
  for (std::size_t i = 0; i < d.time.size() && i < p.size(); ++i) {
    t.push_back(d.time[i]);
    r.push_back((d.conc[i] - p[i]) / d.sem[i]);
  }
  w.panel("Residuals", 0.5);
  w.x_axis(time);
  w.y_axis({.label = run.series.sem_weights ? "r / SEM" : "r"});
  w.series("Zero", {.line = graphics::Dash::kDot, .colour = graphics::kBlack},
           std::vector<double>{d.time.front(), d.time.back()}, std::vector<double>{0, 0});
  w.begin_option("Show Residuals", graphics::When::kChecked, true);
  w.series("Residuals", {.symbol = graphics::Symbol::kCircle, .line = graphics::Dash::kSolid}, t,
           r);
  w.end_option();
}

// The inputs as used; one input's axis is named by its concentration header, several
// are told apart by a legend.
void write_inputs(graphics::PlotWriter& w, const SRQuantRun& run, const graphics::AxisSpec& time) {
  const std::vector<SeriesUse>& used = run.series.inputs;
  w.panel(used.size() == 1 ? "Input" : "Inputs", 0.6);
  w.x_axis(time);
  w.y_axis({.label = used.size() == 1 ? used.front().header : "Conc."});
  if (used.size() > 1) w.legend(graphics::Place::kTopRight);
  const ResponseData& d = run.series.data;
  for (std::size_t i = 0; i < d.inputs.size(); ++i) {
    w.series(used[i].handle,
             {.symbol = graphics::Symbol::kCircle, .line = graphics::Dash::kSolid,
              .colour = kInputColours[i]},
             d.inputs[i].time, d.inputs[i].value);
  }
}

// Appends the points c = from (to / from)^(k / steps), k = 0 .. steps, and f(c); none
// when the range is empty.
template <typename F>
void log_curve(double from, double to, int steps, const F& f, std::vector<double>& x,
               std::vector<double>& y) {
  if (!(from < to)) return;
  for (int k = 0; k <= steps; ++k) {
    x.push_back(from * std::pow(to / from, static_cast<double>(k) / steps));
    y.push_back(f(x.back()));
  }
}

// Each input's response E f(x), log-spaced: solid over the range of its positive values,
// dotted where the range is widened to take in EC50 / 2 .. 2 EC50 (beyond the data).
void write_dose_response(graphics::PlotWriter& w, const SRQuantRun& run) {
  w.panel("Dose-Response", 0.7);
  graphics::AxisSpec x_axis{.label = "Input Concentration", .scale = graphics::Scale::kLog};
  w.y_axis({.label = "Secretion"});
  const std::vector<double>& v = run.fit.values;
  std::vector<double> ec50_x, ec50_y;
  double axis_low = HUGE_VAL, axis_high = 0;
  for (std::size_t i = 0; i < run.model.inputs.size(); ++i) {
    const InputModel& in = run.model.inputs[i];
    const auto at = static_cast<std::size_t>(input_offset(static_cast<int>(i)));
    const double efficacy = v[at + 2], ec50 = v[at + 3], hill = v[at + 4];
    double seen_low = HUGE_VAL, seen_high = 0;
    for (const double x : run.series.data.inputs[i].value) {
      if (x > 0) seen_low = std::min(seen_low, x);
      seen_high = std::max(seen_high, x);
    }
    if (!(seen_low < seen_high)) continue;
    const double low = std::min(seen_low, ec50 / 2), high = std::max(seen_high, ec50 * 2);
    axis_low = std::min(axis_low, low), axis_high = std::max(axis_high, high);
    const auto response = [&](double c) { return dose_response(in, efficacy, ec50, hill, c); };
    std::vector<double> x, y, bx, by;
    log_curve(seen_low, seen_high, kCurvePoints, response, x, y);
    log_curve(low, seen_low, kCurvePoints / 4, response, bx, by);
    bx.push_back(core::kMissing), by.push_back(core::kMissing);
    log_curve(seen_high, high, kCurvePoints / 4, response, bx, by);
    const graphics::Colour colour = kInputColours[i];
    w.series(run.series.inputs[i].handle, {.line = graphics::Dash::kSolid, .colour = colour}, x, y);
    w.series(run.series.inputs[i].handle + " beyond the data",
             {.line = graphics::Dash::kDot, .colour = colour}, bx, by);
    ec50_x.push_back(ec50);
    ec50_y.push_back(dose_response(in, efficacy, ec50, hill, ec50));
  }
  if (axis_low < axis_high) x_axis.low = axis_low, x_axis.high = axis_high;
  w.x_axis(x_axis);
  w.legend(graphics::Place::kTopLeft);
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
  const graphics::AxisSpec time = time_axis(run, output);
  w.panel(output.handle);
  w.x_axis(time);
  graphics::write_common_options(w, {.y_label = output.concentration_header(),
                                     .file_name = output.file_name,
                                     .handle = output.handle,
                                     .x = output.x(),
                                     .y = output.y(),
                                     .sd = output.dy()});
  if (!run.series.data.time.empty()) {
    write_prediction(w, run);
    write_residuals(w, run, time);
  }
  write_inputs(w, run, time);
  write_dose_response(w, run);
  return w.text();
}

}  // namespace tidemark::feedback
