#pragma once
// The outlier tests of Cluster8: single samples that fall faster than elimination with
// the given half-life allows.
#include "pulse/cluster8.h"

namespace tidemark::pulse {

// The drop statistic from the earlier point a to the later point b of the grid:
//   df = n - 1 when the replicate count n (nreps) > 1, else n;
//   s^2 = |(df_b SD_b^2 + df_a SD_a^2) / max(df_a + df_b, 1)|,
//   E = exp(-(t_b - t_a) * 0.6931472 / half_life),  t = (E C_a - C_b) / sqrt(s^2).
// With s^2 = 0 a drop is +infinity, a rise -infinity, no change 0.
float drop_t(const Cluster8Grid& g, int a, int b, float half_life);

// Questionable: points i = 2..n with drop_t(i-1, i) > critical. Probable: for each
// questionable q in 2..n-1, when drop_t(q-1, q+1) > critical or (C(q+1)+C(q-1))/2 <=
// C(q), and q != 2 with drop_t(q-2, q) <= critical and (C(q)+C(q-2))/2 < C(q-1), point
// q-1 is probable and replaces q in the questionable list; otherwise (when the first
// condition fails) q itself is probable.
Cluster8Outliers find_outliers(const Cluster8Grid& g, float half_life, float critical);

}  // namespace tidemark::pulse
