#include "feedback/elimination.h"

#include <cmath>

namespace tidemark::feedback {

EliminationStep::EliminationStep(double k, double dt) {
  if (dt <= 0) return;
  const double x = k * dt;
  const double one_minus_decay = -std::expm1(-x);
  decay = 1 - one_minus_decay;
  a = one_minus_decay / k;
  if (x < 1e-4) {
    // Series of b / dt = 1/2 - x/6 + x^2/24: the closed form cancels badly here.
    b = dt * (0.5 - x / 6 + x * x / 24);
  } else {
    b = a - (one_minus_decay - x * decay) / (k * x);
  }
}

}  // namespace tidemark::feedback
