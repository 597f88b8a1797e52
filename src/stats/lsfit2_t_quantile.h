#pragma once
// The Student t quantile that 95 % two-sided confidence intervals use.

namespace tidemark::stats {

// t(0.975, dof), the value a Student t variable with `dof` degrees of freedom stays
// below with probability 0.975 (dof >= 1), to about 1e-14 relative. Closed forms for
// dof 1 (tan(0.475 pi)) and 2 (0.95 / sqrt(0.04875)); up to dof 500 Newton's method
// on the two-sided probability of the finite series of Abramowitz and Stegun 26.7.3
// and 26.7.4, started from the Cornish-Fisher expansion below; beyond dof 500 that
// expansion about the normal quantile z = 1.959963984540054 to the fourth order,
//   t = z + g1/dof + g2/dof^2 + g3/dof^3 + g4/dof^4,
// whose error there is below 2e-14 relative.
double t_quantile_975(int dof);

}  // namespace tidemark::stats
