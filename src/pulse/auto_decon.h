#pragma once
// AutoDecon: the automatic search for secretion events. Starting from a set of events
// (AutoInit's, Cluster8's, the data set's or none) it fits, inserts an event where the
// residuals call for one, and removes events that the nested F test does not support,
// until an inserted event does not survive; then a last fit with every free entry free.
#include <functional>
#include <string>
#include <vector>

#include "pulse/decon_fit.h"
#include "pulse/event_test.h"

namespace tidemark::pulse {

struct AutoDeconOptions {
  // The level for the whole series: with K events, an event whose P exceeds
  // critical_p / K is removed (see event_critical_p).
  double critical_p = 0.2;
  int max_rounds = kMaxEvents;
  DeconFitOptions fit;
  // Called with (steps done, steps in all) as the search goes on (max_rounds + 2 steps:
  // the first fit and triage, the insertion rounds, the last fit and triage), also
  // between the refits of a triage; answering false cancels the search.
  std::function<bool(long done, long count)> progress{};
};

enum class AutoDeconStatus {
  kOk,
  kFitFailed,  // the first fit failed: `fit` holds its code and message
  kCancelled,  // the progress callback answered false: no results
};

struct AutoDeconResult {
  AutoDeconStatus status = AutoDeconStatus::kOk;
  std::string message;
  DeconFitResult fit;              // the last fit (every user-free entry free)
  std::vector<double> p_values;    // per event of `fit`
  int insertions = 0;              // events inserted and kept
  int removals = 0;                // events removed by the triage
  bool final_fit_failed = false;   // the last fit failed; `fit` is the loop's

  bool ok() const { return status == AutoDeconStatus::kOk; }
};

// The critical P of one event among `events`: Bonferroni's share critical_p / events of
// the series' level. Every event kept is the best of many places the search looked at,
// and a series holds a dozen or more; tested each at the series' level, about one
// spurious event in twenty candidates would survive.
double event_critical_p(double critical_p, int events);

// Runs the search on `series` from `start`. The first fit holds the secretion SD and the
// half-lives (with their fractions) at their starting values; from then on every entry
// has its flag of `start`, and inserted events are free. After the first fit a triage
// tests every event; each insertion is tested with its neighbours only; a last fit and
// triage test every event again, whose P values the result holds.
AutoDeconResult auto_decon(const DeconSeries& series, const ModelVector& start,
                           const AutoDeconOptions& options = {});

// One Deconv run: a fit of `start` with its flags, and the test of every event.
AutoDeconResult fit_and_test(const DeconSeries& series, const ModelVector& start,
                             const DeconFitOptions& options = {});

// The best place for a new event in the residuals of `fit`: the time (among the sample
// times and the midpoints between them, at least half an interval from every event) at
// which one event's concentration curve, matched against the weighted residuals, scores
// highest: score = sum r_i h_i / sqrt(sum h_i^2), r_i = (c_i - C_i) / sd_i and h_i the
// curve of a unit event divided by sd_i; its LogHeight is log10 of the least-squares
// amplitude sum r_i h_i / sum h_i^2. `found` is false when no candidate scores above 0.
struct Insertion {
  bool found = false;
  double position = 0;
  double log_height = 0;
  double score = 0;
};
Insertion best_insertion(const DeconSeries& series, const DeconFitResult& fit);

}  // namespace tidemark::pulse
