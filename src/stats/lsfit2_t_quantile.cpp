#include "stats/lsfit2_t_quantile.h"

#include <cassert>
#include <cmath>
#include <numbers>

namespace tidemark::stats {

double t_quantile_975(int dof) {
  assert(dof >= 1);
  if (dof == 1) return std::tan(0.475 * std::numbers::pi);
  if (dof == 2) return 0.95 / std::sqrt(2.0 * 0.975 * 0.025);
  constexpr double z = 1.959963984540054;
  constexpr double z2 = z * z;
  // The Cornish-Fisher terms g_k as polynomials in z (Abramowitz and Stegun 26.7.5).
  const double g1 = (z2 + 1) * z / 4;
  const double g2 = ((5 * z2 + 16) * z2 + 3) * z / 96;
  const double g3 = (((3 * z2 + 19) * z2 + 17) * z2 - 15) * z / 384;
  const double g4 = ((((79 * z2 + 776) * z2 + 1482) * z2 - 1920) * z2 - 945) * z / 92160;
  const double v = dof;
  return z + (g1 + (g2 + (g3 + g4 / v) / v) / v) / v;
}

}  // namespace tidemark::stats
