#pragma once
// The points a rhythm analysis uses, and the linear trend it may take out first.
//
// A point is used when its concentration is not missing and its replicate count is not
// 0 (a point the conditioner inserted, or one never measured). Its weight is 1 / SEM^2
// when every used point has a positive, non-missing SEM; otherwise every weight is 1
// (one unusable SEM would give its point an infinite or undefined weight).
//
//   stats::PeriodicSeries s = stats::periodic_series(x, y, dy, reps);
//   stats::Trend line = stats::remove_trend(s);  // s.y now holds the residuals
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tidemark::stats {

struct PeriodicSeries {
  std::vector<double> t;
  std::vector<double> y;
  std::vector<double> w;        // weights, 1 / SEM^2 or all 1
  std::vector<int> index;       // each point's index in the arrays it was taken from
  bool sem_weights = false;     // true when w holds 1 / SEM^2
  int missing = 0;              // points left out for a missing concentration
  int unreplicated = 0;         // points left out for REPS 0

  int size() const { return static_cast<int>(t.size()); }
};

// The used points of the arrays x, y, dy, reps (all of one length).
PeriodicSeries periodic_series(std::span<const float> x, std::span<const float> y,
                               std::span<const float> dy, std::span<const float> reps);

// The same for series already in double precision with weights: every point is used.
PeriodicSeries periodic_series(std::span<const double> t, std::span<const double> y,
                               std::span<const double> w);

// The weighted least-squares line y = intercept + slope * t.
struct Trend {
  double intercept = 0;
  double slope = 0;
};

// The weighted line through (t, y) with weights w; none with fewer than two distinct
// times or no positive weight.
std::optional<Trend> fit_trend(std::span<const double> t, std::span<const double> y,
                               std::span<const double> w);

// Fits the weighted line to the series and replaces y by its residuals; none, and y
// unchanged, when no line can be fitted.
std::optional<Trend> remove_trend(PeriodicSeries& series);

// The weighted mean of y.
double weighted_mean(std::span<const double> y, std::span<const double> w);

// The median of the positive increments between successive (sorted) times; 0 when there
// are none.
double median_interval(std::span<const double> t);

}  // namespace tidemark::stats
