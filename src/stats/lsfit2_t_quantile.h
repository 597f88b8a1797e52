#pragma once
// The Student t quantile that 95 % two-sided confidence intervals use.

namespace tidemark::stats {

// t(0.975, dof), the value a Student t variable with `dof` degrees of freedom stays
// below with probability 0.975 (dof >= 1). Exact for dof 1 (tan(0.475 pi)) and 2
// (0.95 / sqrt(0.04875)); from dof 3 on the Cornish-Fisher expansion about the normal
// quantile z = 1.959963984540054 to the fourth order in 1/dof,
//   t = z + g1/dof + g2/dof^2 + g3/dof^3 + g4/dof^4,
// whose error is below 0.004 at dof 3 and below 1e-6 from dof 10.
double t_quantile_975(int dof);

}  // namespace tidemark::stats
