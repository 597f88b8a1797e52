#include "pulse/decon_fit.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "pulse/model_gradient.h"
#include "pulse/secretion_model.h"

namespace tidemark::pulse {

void ModelVector::remove_event(int e) {
  const auto at = static_cast<std::ptrdiff_t>(layout.position_index(e));
  values.erase(values.begin() + at, values.begin() + at + 2);
  free.erase(free.begin() + at, free.begin() + at + 2);
  --layout.events;
}

int ModelVector::insert_event(double position, double log_height, bool free_event) {
  int e = 0;
  while (e < layout.events && values[layout.position_index(e)] <= position) ++e;
  const auto at = static_cast<std::ptrdiff_t>(layout.position_index(e));
  values.insert(values.begin() + at, {position, log_height});
  free.insert(free.begin() + at, {free_event, free_event});
  ++layout.events;
  return e;
}

namespace {

// The weighted model and Jacobian of the whole series at one vector, kept while LSFIT2
// asks for it point by point (x is the sample index).
class WeightedModel {
 public:
  explicit WeightedModel(const DeconSeries& series, const ModelLayout& layout)
      : series_(series), layout_(layout), values_(series.time.size()),
        jacobian_(series.time.size() * layout.size()) {}

  double operator()(std::span<const double> p, double x, std::span<double> gradient,
                    bool& failed) {
    if (!valid_ || !std::equal(p.begin(), p.end(), at_.begin(), at_.end())) {
      at_.assign(p.begin(), p.end());
      valid_ = evaluate_model_gradient(p, layout_, series_.time, values_, jacobian_).ok();
    }
    if (!valid_) {
      failed = true;
      return 0;
    }
    const auto i = static_cast<std::size_t>(x);
    const double w = 1 / series_.sd[i];
    const auto width = static_cast<std::size_t>(layout_.size());
    for (std::size_t j = 0; j < width; ++j) gradient[j] = jacobian_[i * width + j] * w;
    return values_[i] * w;
  }

 private:
  const DeconSeries& series_;
  ModelLayout layout_;
  std::vector<double> at_;
  bool valid_ = false;
  std::vector<double> values_;
  std::vector<double> jacobian_;
};

}  // namespace

bool weighted_sum_of_squares(const DeconSeries& series, const ModelVector& model, double& ssr) {
  std::vector<float> c(series.time.size());
  if (!evaluate_model(model.values, model.layout, series.time, c).ok()) return false;
  ssr = 0;
  for (std::size_t i = 0; i < c.size(); ++i) {
    const double r = (series.concentration[i] - c[i]) / series.sd[i];
    ssr += r * r;
  }
  return std::isfinite(ssr);
}

DeconFitResult fit_model(const DeconSeries& series, const ModelVector& start,
                         const DeconFitOptions& options) {
  const std::size_t n = series.time.size();
  std::vector<double> x(n), y(n);
  for (std::size_t i = 0; i < n; ++i) {
    x[i] = static_cast<double>(i);
    y[i] = series.concentration[i] / series.sd[i];
  }
  stats::Lsfit2Problem problem;
  problem.x = x;
  problem.y = y;
  for (int j = 0; j < start.layout.size(); ++j) {
    const auto k = static_cast<std::size_t>(j);
    problem.parameters.push_back(
        {std::string(parameter_name(start.layout, j)), start.values[k], start.free[k]});
  }
  problem.options.max_iterations = options.max_iterations;
  problem.options.relative_tolerance = options.relative_tolerance;
  problem.options.reject_failed_steps = true;
  auto model = std::make_shared<WeightedModel>(series, start.layout);
  problem.gradient = [model](std::span<const double> p, double at, std::span<double> gradient,
                             bool& failed) { return (*model)(p, at, gradient, failed); };

  const stats::Lsfit2Result fit = stats::lsfit2(problem);
  DeconFitResult result;
  result.code = fit.code;
  result.message = fit.message;
  result.model = start;
  result.points = fit.points;
  result.fitted = fit.fitted;
  result.iterations = fit.iterations;
  result.standard_errors.assign(start.values.size(), 0.0);
  result.last_values = fit.values;
  if (!result.usable()) return result;
  result.model.values = fit.values;
  result.standard_errors = fit.standard_errors;
  result.sum_of_squares = fit.sum_of_squares;
  return result;
}

}  // namespace tidemark::pulse
