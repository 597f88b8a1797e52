#pragma once
// The error-function factor of the secretion-elimination model's closed form.
#include <cmath>

namespace tidemark::pulse {

// E(x) = (sqrt(pi) / 2) * (1 + erf(x)), with erf from Abramowitz and Stegun 7.1.28
// (absolute error at most 3e-7):
//   p = 1 + a1|x| + a2|x|^2 + ... + a6|x|^6,   erf(|x|) ~ 1 - 1/p^16
//   p >= 175:  E = 1.77245386 for x > 0, 0 otherwise (1/p^16 is then below 1.3e-36)
//   otherwise: e = (1 - 1/p^16) * 0.88622693,
//              E = 0.88622693 + e for x > 0, 0.88622693 - e otherwise.
// The model keeps this approximation so that its values do not depend on the C library.
struct AbramowitzStegunErfFactor {
  double operator()(double x) const {
    const double ax = std::fabs(x);
    const double p =
        1.0 + ax * (0.0705230784 +
                    ax * (0.0422820123 +
                          ax * (0.0092705272 +
                                ax * (0.0001520143 + ax * (0.0002765672 + ax * 0.0000430638)))));
    if (p >= 175.0) return x > 0 ? 1.77245386 : 0.0;
    const double p2 = p * p;
    const double p4 = p2 * p2;
    const double p8 = p4 * p4;
    const double e = (1.0 - 1.0 / (p8 * p8)) * 0.88622693;
    return x > 0 ? 0.88622693 + e : 0.88622693 - e;
  }
};

}  // namespace tidemark::pulse
