#pragma once
// How a kernel of the Periodic mode ended: ok, or the reason it refused its input, with
// the message that says why in words.
#include <string>

namespace tidemark::stats {

enum class PeriodicStatus {
  kOk = 0,
  kNoPoints,         // every concentration missing or of REPS 0
  kTooFewPoints,     // fewer points than the model has parameters (and one to spare)
  kConstantSeries,   // nothing varies, so no rhythm can be sought
  kBadPeriodRange,   // outside what the sampling can resolve, or not a range
  kBadOption,        // a count or order out of its bounds
  kCancelled,        // the progress callback stopped the permutation cycles
};

}  // namespace tidemark::stats
