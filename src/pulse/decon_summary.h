#pragma once
// What a fitted secretion-elimination vector says in figures a reader compares: the
// secretion rate over time, each event's mass, and the totals of the summary books.
#include <span>
#include <vector>

#include "pulse/model_layout.h"

namespace tidemark::pulse {

// The secretion rate S(t) = S0 + sum_e 10^L_e exp(-(t - P_e)^2 / (2 sigma^2)).
double secretion_rate(std::span<const double> params, const ModelLayout& layout, double t);

// The mass of an event, the integral of its secretion: 10^L sigma sqrt(2 pi).
double event_mass(double log_height, double sigma);

struct DeconSummary {
  int events = 0;
  double mean_interval = 0;  // mean time between successive events; 0 with fewer than 2
  double basal_secretion = 0;     // S0 times the span of the series
  double pulsatile_secretion = 0; // the sum of the event masses
};

// The figures of `params` over a series that runs from `first` to `last`.
DeconSummary summarize(std::span<const double> params, const ModelLayout& layout, double first,
                       double last);

}  // namespace tidemark::pulse
