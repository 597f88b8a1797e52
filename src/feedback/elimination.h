#pragma once
// Exact one-compartment elimination over a step of piecewise-linear secretion.
//
// dC/dt = S(t) - k C with S rising linearly from S0 to S1 over [0, dt] gives
//
//   C(dt) = C(0) e^{-k dt} + S0 a + (S1 - S0) b,
//   a = (1 - e^{-k dt}) / k,
//   b = a - (1 - e^{-k dt} (1 + k dt)) / (k^2 dt),
//
// so the only approximation of a prediction is the piecewise-linear secretion.
// The same recurrence, with k = 1 / W, is the causal exponential spreading of mean W.

namespace tidemark::feedback {

struct EliminationStep {
  double decay = 1;  // e^{-k dt}
  double a = 0;      // weight of S0
  double b = 0;      // weight of S1 - S0

  // The coefficients for rate k > 0 and step dt >= 0.
  EliminationStep(double k, double dt);

  double next(double c, double s0, double s1) const { return c * decay + s0 * a + (s1 - s0) * b; }
};

}  // namespace tidemark::feedback
