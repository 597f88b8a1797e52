#pragma once
// An input series as the model sees it: linearly interpolated between its samples,
// delayed, and spread by a normalised kernel, evaluated on a uniform time grid.
//
// The grid is u_j = first + j h, j = 0 .. count - 1 (first = first output time - delay).
// Spreading (K * x)(u) = integral K(s) x(u - s) ds, with
//   Gaussian:    K(s) = exp(-s^2 / 2W^2) / (W sqrt(2 pi)), cut at 4 W each side; the
//                weight of the grid cell [s - h/2, s + h/2] is the kernel's mass there,
//                renormalised to 1 (so a constant comes through exactly and W -> 0
//                tends to no spreading);
//   exponential: K(s) = exp(-s / W) / W for s >= 0 (causal, mean W), by the exact
//                recurrence for the linear pieces between grid points, started 8 W
//                before the first grid point at the input's value there.
// Where a kernel tail reaches past the input's samples, the input is taken as constant
// at its first (or last) value; the grid itself must lie inside the samples.
#include <span>
#include <vector>

#include "feedback/response_model.h"

namespace tidemark::feedback {

// Linear interpolation of (time, value) at the points first + j step, j = 0 .. out.size() - 1;
// points outside the samples take the nearest end value.
void interpolate_increasing(const Series& series, double first, double step,
                            std::span<double> out);

// The spread, delayed input at the grid points u_j described above (out.size() points).
void spread_input(const Series& series, Spreading spreading, double width, double first,
                  double step, std::span<double> out);

}  // namespace tidemark::feedback
