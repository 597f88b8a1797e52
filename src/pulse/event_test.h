#pragma once
// The significance of each secretion event of a fit: the nested F test of the fit with
// the event against the fit without it.
#include <vector>

#include "pulse/decon_fit.h"

namespace tidemark::pulse {

// P of the nested F test that drops one event (its POSITION and LogHeight, 2 degrees of
// freedom):
//   F = ((SSR_without - SSR_with) / 2) / (SSR_with / d),  d = N - p,
//   P = P(F(2, d) > F) = (1 + 2 F / d)^(-d / 2)   (the F(2, d) tail in closed form).
// 1 when the event does not lower SSR; 0 when SSR_with is 0 and SSR_without is not.
double event_p_value(double ssr_with, double ssr_without, int degrees_of_freedom);

struct EventTestResult {
  std::vector<int> events;  // the events tested, as indices of the fit's events
  std::vector<double> p_values;  // per tested event, in the order of `events`
  std::vector<double> ssr_without;
};

// The vector of a test's refit without event e: the event removed, and free only the
// basal secretion and the position and LogHeight of the two events beside it (each where
// `model` has it free). When a spurious event splits one burst with a real one, the real
// one moves back to the burst's centre in the refit, and the spurious event shows as
// dispensable; events further away hardly move when one event goes, and holding them
// makes the refit small.
ModelVector without_event(const ModelVector& model, int e);

// Tests the events `events` of `fit` (a successful fit of `series`; every event when
// empty): refits without_event() from the fitted values for at most
// options.test_iterations steps (a refit stopped there counts with its SSR, which can
// only lie above the minimum's); a refit that fails counts with the SSR of the fitted
// vector minus the event (not refitted). The test's SSR without the event lies at or
// above the SSR of a refit with every entry free, so its P is at most that refit's.
EventTestResult test_events(const DeconSeries& series, const DeconFitResult& fit,
                            const DeconFitOptions& options = {}, std::vector<int> events = {});

}  // namespace tidemark::pulse
