#pragma once
// Cross-approximate entropy of two series A and B for embedding lengths m = 1 and 2.
// With K = N - m + 1 templates of each series and c_m(i) the B templates within r of A
// template i (stats/xapen_counts.h):
//   Phi(m) = (1/K) * sum over i of ln(c_m(i) / K), with c_m(i) = 0 taken as 0.5
// (there is no self-match in a cross comparison; half a match takes its place, so every
// A template contributes), and
//   X-ApEn(1) = Phi(1) - Phi(2),   X-ApEn(2) = Phi(2) - Phi(3).
//
//   XApEn x = cross_apen(a, b, 0.2);   // x.value[0] is X-ApEn(1)
#include <array>
#include <span>
#include <vector>

#include "stats/xapen_counts.h"

namespace tidemark::stats {

// The series must hold at least this many points (K >= 1 at m = 3).
inline constexpr int kXApEnMinPoints = 3;

struct XApEn {
  std::array<double, kXApEnLengths> phi{};  // Phi(1), Phi(2), Phi(3)
  std::array<double, 2> value{};            // X-ApEn(1), X-ApEn(2)
};

// Phi(1..3) and X-ApEn(1..2) from the counts of N-point series (N >= kXApEnMinPoints).
XApEn xapen_from_counts(const CrossCounts& counts, int n);

// X-ApEn of a and b (same length, at least kXApEnMinPoints) at tolerance r; with
// `hits`, the matches at m = 1 and 2 are added to it by lag.
XApEn cross_apen(std::span<const double> a, std::span<const double> b, double r,
                 HitTable* hits = nullptr, CountMethod method = CountMethod::kFast);

// A series and its standard errors on the Z-score scale: mean and SD over the n points
// (SD = sqrt(sum (x - mean)^2 / (n - 1))), then x <- (x - mean) / SD and s <- s / SD.
// A series with SD 0 (or a single point) is only centred.
struct Standardised {
  std::vector<double> x, s;
};
Standardised standardise(std::span<const float> x, std::span<const float> s);

}  // namespace tidemark::stats
