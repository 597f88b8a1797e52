#include "pulse/auto_decon.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

#include "pulse/secretion_model.h"

namespace tidemark::pulse {

namespace {

// An event whose LogHeight falls this far below the median of the events' has collapsed.
constexpr double kCollapsedLogHeight = 3.0;

std::vector<bool> hold_shape(const ModelVector& v) {
  std::vector<bool> free = v.free;
  for (int j = kSecretionSd; j < v.layout.first_event_index(); ++j) free[j] = false;
  return free;
}

// Removes events that collapsed, left the sampled span or merged with a neighbour
// (closer than half an interval: the smaller goes); true when any went.
bool drop_degenerate(ModelVector& v, const DeconSeries& series, int& removals) {
  const double first = series.time.front();
  const double last = series.time.back();
  const double dt = (last - first) / std::max<double>(1, double(series.time.size() - 1));
  std::vector<double> heights;
  for (int e = 0; e < v.layout.events; ++e) heights.push_back(v.values[v.layout.log_height_index(e)]);
  std::sort(heights.begin(), heights.end());
  const double middle = heights.empty() ? 0 : heights[heights.size() / 2];
  bool dropped = false;
  for (int e = v.layout.events - 1; e >= 0; --e) {
    const double p = v.values[v.layout.position_index(e)];
    const double l = v.values[v.layout.log_height_index(e)];
    bool drop = l < middle - kCollapsedLogHeight || p < first - dt || p > last;
    if (!drop && e > 0) {
      const double q = v.values[v.layout.position_index(e - 1)];
      if (p - q < 0.5 * dt) {
        const double lq = v.values[v.layout.log_height_index(e - 1)];
        if (lq < l) {
          v.remove_event(e - 1);
          ++removals;
          dropped = true;
          continue;
        }
        drop = true;
      }
    }
    if (drop) {
      v.remove_event(e);
      ++removals;
      dropped = true;
    }
  }
  return dropped;
}

// Fits `v`; when the fit fails because events degenerated on the way (a collapsed height
// or a position outside the series leaves the Jacobian without rank), drops them at the
// last iterate and fits again.
DeconFitResult fit_events(const DeconSeries& series, ModelVector v, const AutoDeconOptions& options,
                          int& removals) {
  for (int attempt = 0;; ++attempt) {
    DeconFitResult fit = fit_model(series, v, options.fit);
    if (fit.usable() || attempt == 3 || fit.last_values.size() != v.values.size()) return fit;
    ModelVector last = v;
    last.values = fit.last_values;
    if (!drop_degenerate(last, series, removals)) return fit;
    v = std::move(last);
  }
}

AutoDeconResult cancelled(AutoDeconResult result) {
  result.status = AutoDeconStatus::kCancelled;
  result.message = "The search was cancelled.";
  return result;
}

// The events a triage tests: every event without a focus; around an inserted event's
// place, the event nearest to it and its two neighbours, the ones whose support the
// insertion changed.
std::vector<int> events_near(const ModelVector& v, std::optional<double> focus) {
  std::vector<int> events;
  if (!focus) {
    for (int e = 0; e < v.layout.events; ++e) events.push_back(e);
    return events;
  }
  if (v.layout.events == 0) return events;
  int nearest = 0;
  for (int e = 1; e < v.layout.events; ++e) {
    if (std::fabs(v.values[v.layout.position_index(e)] - *focus) <
        std::fabs(v.values[v.layout.position_index(nearest)] - *focus)) {
      nearest = e;
    }
  }
  for (int e = std::max(0, nearest - 1); e <= std::min(v.layout.events - 1, nearest + 1); ++e) {
    events.push_back(e);
  }
  return events;
}

// The events of `v` within one sampling interval of a place in `places`.
std::vector<int> events_at(const ModelVector& v, const std::vector<double>& places,
                           double interval) {
  std::vector<int> events;
  for (int e = 0; e < v.layout.events; ++e) {
    const double p = v.values[v.layout.position_index(e)];
    if (std::any_of(places.begin(), places.end(),
                    [&](double q) { return std::fabs(p - q) < interval; })) {
      events.push_back(e);
    }
  }
  return events;
}

// The search's progress: a step for the first fit and triage, one per insertion round
// and one for the last fit and triage. The callback is asked at every step and before
// every refit of a triage, so that a cancel takes effect within one refit however long
// the series; once it answers false the search stops.
class Steps {
 public:
  explicit Steps(const AutoDeconOptions& options)
      : report_(options.progress), count_(options.max_rounds + 2L) {}

  bool go_on() {
    if (!cancelled_ && report_) cancelled_ = !report_(done_, count_);
    return !cancelled_;
  }
  void next() { ++done_; }
  bool cancelled() const { return cancelled_; }

 private:
  const std::function<bool(long, long)>& report_;
  long done_ = 0;
  long count_;
  bool cancelled_ = false;
};

struct Triage {
  DeconFitResult fit;
  EventTestResult tests;  // the last tests of `fit`'s events
};

// Removes degenerate events; then tests the events (see events_near) and removes, one at
// a time with a refit after each, the least significant of those that failed the first
// test while its P exceeds the per-event critical P. An event that passed the first test
// is not tested again: a removal can weaken the others only by leaving misfit behind,
// which raises the residual variance of the F test, and following that would take real
// events away one after another. A refit that fails ends the triage with the last good
// fit. `fit` must be a successful fit.
Triage triage(const DeconSeries& series, DeconFitResult fit, const AutoDeconOptions& options,
              Steps& steps, int& removals, std::optional<double> focus = std::nullopt) {
  const double interval = (double(series.time.back()) - series.time.front()) /
                          std::max<double>(1, double(series.time.size() - 1));
  std::optional<std::vector<double>> suspects;  // where the events that failed first were
  while (steps.go_on()) {
    ModelVector v = fit.model;
    if (!drop_degenerate(v, series, removals)) {
      const double critical = event_critical_p(options.critical_p, v.layout.events);
      const std::vector<int> tested =
          suspects ? events_at(v, *suspects, interval) : events_near(v, focus);
      EventTestResult tests = test_events(series, fit, options.fit, tested);
      if (!suspects) {
        suspects.emplace();
        for (std::size_t i = 0; i < tests.events.size(); ++i) {
          if (tests.p_values[i] > critical) {
            suspects->push_back(v.values[v.layout.position_index(tests.events[i])]);
          }
        }
      }
      const auto worst = std::max_element(tests.p_values.begin(), tests.p_values.end());
      if (worst == tests.p_values.end() || *worst <= critical) return {std::move(fit), std::move(tests)};
      v.remove_event(tests.events[static_cast<std::size_t>(worst - tests.p_values.begin())]);
      ++removals;
    }
    DeconFitResult refit = fit_events(series, v, options, removals);
    if (!refit.usable()) return {std::move(fit), {}};
    fit = std::move(refit);
  }
  return {std::move(fit), {}};
}

}  // namespace

double event_critical_p(double critical_p, int events) {
  return critical_p / std::max(1, events);
}

Insertion best_insertion(const DeconSeries& series, const DeconFitResult& fit) {
  const std::size_t n = series.time.size();
  const ModelVector& v = fit.model;
  std::vector<float> model(n);
  Insertion best;
  if (n < 2 || !evaluate_model(v.values, v.layout, series.time, model).ok()) return best;
  std::vector<double> r(n);
  for (std::size_t i = 0; i < n; ++i) r[i] = (series.concentration[i] - model[i]) / series.sd[i];

  // A unit event (LogHeight 0) with the fit's SD and elimination, no basal, no C0.
  ModelVector unit{{v.layout.half_lives, 1}, {}, {}};
  unit.values.assign(v.values.begin(), v.values.begin() + v.layout.first_event_index());
  unit.values[kBasal] = 0;
  unit.values[kConc0] = 0;
  unit.values.push_back(0);
  unit.values.push_back(0);
  const double dt = (double(series.time.back()) - series.time.front()) / double(n - 1);
  std::vector<float> h(n);
  for (std::size_t c = 0; c + 1 < 2 * n; ++c) {
    const double tau = series.time.front() + 0.5 * dt * double(c);
    bool near = false;
    for (int e = 0; e < v.layout.events; ++e) {
      near = near || std::fabs(v.values[v.layout.position_index(e)] - tau) < 0.5 * dt;
    }
    if (near) continue;
    unit.values[unit.layout.position_index(0)] = tau;
    if (!evaluate_model(unit.values, unit.layout, series.time, h).ok()) continue;
    double rh = 0, hh = 0;
    for (std::size_t i = 0; i < n; ++i) {
      const double w = h[i] / series.sd[i];
      rh += r[i] * w;
      hh += w * w;
    }
    if (!(hh > 0)) continue;
    const double score = rh / std::sqrt(hh);
    if (score > best.score) best = {true, tau, std::log10(rh / hh), score};
  }
  return best;
}

AutoDeconResult auto_decon(const DeconSeries& series, const ModelVector& start,
                           const AutoDeconOptions& options) {
  AutoDeconResult result;
  ModelVector held = start;
  held.free = hold_shape(start);
  DeconFitResult fit = fit_events(series, held, options, result.removals);
  if (!fit.usable()) {
    result.status = AutoDeconStatus::kFitFailed;
    result.message = fit.message;
    result.fit = fit;
    return result;
  }
  // After the first fit the SD and half-lives take the flags of `start`: held, the
  // insertions would follow a wrong half-life's misfit.
  if (DeconFitResult freed = fit_events(series, [&] {
        ModelVector v = fit.model;
        v.free = start.free;
        v.free.resize(v.values.size(), true);
        for (std::size_t j = 0; j < v.free.size() && j < start.free.size(); ++j) v.free[j] = start.free[j];
        return v;
      }(), options, result.removals);
      freed.usable()) {
    fit = std::move(freed);
  }
  Steps steps(options);
  fit = triage(series, fit, options, steps, result.removals).fit;
  // Each round inserts the best-supported new event and tests it with its neighbours; the
  // events elsewhere gain support from the better fit and wait for the last triage.
  for (int round = 0; round < options.max_rounds; ++round) {
    steps.next();
    if (fit.model.layout.events >= kMaxEvents || !steps.go_on()) break;
    const Insertion add = best_insertion(series, fit);
    if (!add.found) break;
    ModelVector trial = fit.model;
    trial.insert_event(add.position, add.log_height);
    int removals = 0;
    const DeconFitResult inserted = fit_events(series, trial, options, removals);
    if (!inserted.usable()) break;
    Triage after = triage(series, inserted, options, steps, removals, add.position);
    // The inserted event survived when the triage left more events than before it.
    if (after.fit.model.layout.events <= fit.model.layout.events) break;
    fit = std::move(after.fit);
    result.removals += removals;
    ++result.insertions;
  }

  if (steps.cancelled()) return cancelled(std::move(result));
  steps.next();
  ModelVector all = fit.model;
  all.free = start.free;
  all.free.resize(all.values.size(), true);
  for (int j = 0; j < all.layout.first_event_index(); ++j) all.free[j] = start.free[j];
  const DeconFitResult last = fit_events(series, all, options, result.removals);
  if (last.usable()) {
    Triage final_triage = triage(series, last, options, steps, result.removals);
    if (steps.cancelled()) return cancelled(std::move(result));
    fit = std::move(final_triage.fit);
    if (final_triage.tests.events.size() == static_cast<std::size_t>(fit.model.layout.events)) {
      result.p_values = std::move(final_triage.tests.p_values);
    }
  } else {
    result.final_fit_failed = true;
  }
  if (result.p_values.size() != static_cast<std::size_t>(fit.model.layout.events)) {
    result.p_values = test_events(series, fit, options.fit).p_values;
  }
  result.fit = fit;
  return result;
}

AutoDeconResult fit_and_test(const DeconSeries& series, const ModelVector& start,
                             const DeconFitOptions& options) {
  AutoDeconResult result;
  result.fit = fit_model(series, start, options);
  if (!result.fit.ok()) {
    result.status = AutoDeconStatus::kFitFailed;
    result.message = result.fit.message;
    return result;
  }
  result.p_values = test_events(series, result.fit, options).p_values;
  return result;
}

}  // namespace tidemark::pulse
