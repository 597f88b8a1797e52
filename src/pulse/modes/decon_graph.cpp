#include "pulse/modes/decon_graph.h"

#include <vector>

#include "graphics/common_options.h"
#include "graphics/plot_writer.h"
#include "pulse/decon_summary.h"
#include "pulse/secretion_model.h"

namespace tidemark::pulse {

namespace {

constexpr int kCurveSteps = 8;  // curve points per sampling interval

}  // namespace

std::string decon_graph(const DeconRun& run) {
  const ModelVector& v = run.result.fit.model;
  std::vector<double> positions;
  for (int e = 0; e < v.layout.events; ++e) positions.push_back(v.values[v.layout.position_index(e)]);
  std::vector<float> sd(run.sd.begin(), run.sd.end());
  std::vector<float> conc(run.concentration.begin(), run.concentration.end());

  graphics::PlotWriter w;
  w.page(run.mode_name + " Deconvolution");
  w.panel(run.handle);
  w.x_axis({.label = "Time"});
  graphics::write_common_options(w, {.y_label = run.concentration_header,
                                     .file_name = run.file_name,
                                     .handle = run.handle,
                                     .x = run.time,
                                     .y = conc,
                                     .sd = sd,
                                     .positions = positions});
  // The fitted curve and the secretion rate on a grid finer than the samples.
  const std::size_t n = run.time.size();
  const double first = run.time.front();
  const double step = (double(run.time.back()) - first) / double((n - 1) * kCurveSteps);
  std::vector<float> t;
  for (std::size_t i = 0; i <= (n - 1) * kCurveSteps; ++i) t.push_back(float(first + step * double(i)));
  std::vector<float> curve(t.size());
  if (evaluate_model(v.values, v.layout, t, curve).ok()) {
    w.series("Fit", {.line = graphics::Dash::kSolid}, t, curve);
  }
  std::vector<double> st, rate, ex, ey;
  for (const float x : t) {
    st.push_back(x);
    rate.push_back(secretion_rate(v.values, v.layout, x));
  }
  for (const double p : positions) {
    ex.push_back(p);
    ey.push_back(secretion_rate(v.values, v.layout, p));
  }
  w.panel("Secretion", 0.7);
  w.x_axis({.label = "Time"});
  w.y_axis({.label = "Secretion Rate"});
  w.series("Secretion", {.line = graphics::Dash::kSolid}, st, rate);
  w.series("Events", {.symbol = graphics::Symbol::kTriangle}, ex, ey);

  std::vector<float> fitted(n);
  std::vector<double> rx, ry;
  if (evaluate_model(v.values, v.layout, run.time, fitted).ok()) {
    for (std::size_t i = 0; i < n; ++i) {
      rx.push_back(run.time[i]);
      ry.push_back((run.concentration[i] - fitted[i]) / run.sd[i]);
    }
  }
  w.panel("Weighted Residuals", 0.6);
  w.x_axis({.label = "Time"});
  w.y_axis({.label = "Residual / SD"});
  w.begin_option("Show Residuals", graphics::When::kChecked, true);
  w.series("Residuals", {.symbol = graphics::Symbol::kCircle}, rx, ry);
  w.end_option();
  return w.text();
}

}  // namespace tidemark::pulse
