#pragma once
// The starting values and bounds an SRQuant calculation takes from the data when the
// user has set none (docs/srquant.md, "Parameters"). Times are taken to be minutes.
//
// With T the output's time span, h its median sampling interval, R the range of its
// concentrations and k = ln 2 / 45 the elimination rate of the starting half-life:
//   Delay i     0 .. T/4, start T/16
//   Width i     h/2 .. T/8, start 2h (held at 0 without spreading)
//   Efficacy i  0 .. 20 R k, start 2 R k (in a product, inputs after the first hold 1:
//               only the product of the efficacies counts)
//   EC50 i      half the input's smallest positive .. twice its largest value, start
//               its median
//   Hill i      0.5 .. 5, start 1
//   Basal       0 .. max ln 2 / 10, start min k (the secretion that holds the lowest
//               level; the upper bound holds the highest at the shortest half-life)
//   Half-Life   10 .. 120, start 45 (the upper bound at most T)
//   Half-Life 2 60 .. 600, start 180; Fraction 2  0 .. 1, start 0.5 (held, unused, with
//               one elimination)
//   Initial     0 .. 2 max, start the first fitted output value
#include "feedback/response_model.h"

namespace tidemark::feedback {

inline constexpr double kStartHalfLife = 45;
inline constexpr double kShortestHalfLife = 10;

// Puts the defaults into every parameter of `model` (its inputs, spreading, dose-response,
// combination and eliminations already chosen) from `data`, one input series per model
// input. Series without points give the bounds of a series of one value 1.
void put_default_parameters(ResponseModel& model, const ResponseData& data);

}  // namespace tidemark::feedback
