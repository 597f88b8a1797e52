#pragma once
// Detection quality of AutoDecon and Cluster8 on simulated LH-like series with known
// truth: one cell of the grid of sampling intervals and noise levels.
#include <cstdint>

#include "core/random.h"
#include "pulse/auto_decon.h"

namespace tidemark::pulse {

// The truth of every series: a 24-hour series sampled every `interval` minutes from
// time 0; half-life uniform on 40..90 min, secretion SD uniform on 3..10 min, intervals
// between events uniform on 40..120 min (simulate.h's draw with mean 80), basal
// concentration 2 (S0 = 2 ln 2 / HL), C0 = 1, event masses log-normal about 3
// (LogHeight = log10(3 / (SD sqrt(2 pi))) + 0.15 z), one replicate with SD = cv * C(t).
struct QualityCell {
  double interval = 10;
  double cv = 0.05;
  int series = 100;
  double critical_p = AutoDeconOptions{}.critical_p;
};

// Figures of one method over a cell. A found event matches a true one within
// max(interval, 2.354 SD) (one to one, closest first); events in the last interval of a
// series are left out on both sides (no sample can show them).
struct MethodQuality {
  int truth = 0;
  int found = 0;
  int matched = 0;
  double sensitivity() const { return truth > 0 ? double(matched) / truth : 0; }
  double false_positive_share() const { return found > 0 ? double(found - matched) / found : 0; }
  // Median relative errors (AutoDecon only): half-life, SD, basal secretion per series;
  // mass per matched event.
  double half_life_error = 0;
  double sd_error = 0;
  double basal_error = 0;
  double mass_error = 0;
};

struct CellQuality {
  MethodQuality auto_decon;
  MethodQuality cluster8;
  int failed = 0;  // series whose AutoDecon did not finish with a fit (counted as no events)
  int auto_init_failed = 0;  // series that started without AutoInit's values
};

CellQuality measure_cell(const QualityCell& cell, core::Random& random);

}  // namespace tidemark::pulse
