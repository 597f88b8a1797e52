#pragma once
// Approximate entropy ApEn(m, r, N) of one series for m = 1 and m = 2.
//
// For each m = 1, 2, 3 and each usable template i (apen_counts.h):
//   Cr(i) = matches(i) / usable templates        (single precision)
//   Φ(m)  = Σ ln Cr(i) / (templates with matches(i) > 0)   (double precision sum)
// and ApEn(1) = Φ(1) − Φ(2), ApEn(2) = Φ(2) − Φ(3), stored single precision.
#include <array>
#include <cstdint>
#include <span>

#include "stats/apen_counts.h"

namespace tidemark::stats {

struct ApEnValues {
  float apen1 = 0;  // ApEn(1, r, N)
  float apen2 = 0;  // ApEn(2, r, N)
  // Usable templates of length 1, 2 and 3.
  std::array<std::int32_t, 3> usable{};
};

// Φ(m) from the counts of one m, summed over the templates in ascending order. A length
// with no template that has a match has Φ = 0 (an empty sum).
double phi(const TemplateCounts& counts);

// ApEn(1) and ApEn(2) of x with flags `usable` (same length) and tolerance r.
//   apen({1, 2, 1, 2}, {1, 1, 1, 1}, 0.5f)  ->  {0, 0}: both Φ differences vanish
ApEnValues apen(std::span<const float> x, std::span<const std::uint8_t> usable, float r,
                CountMethod method = CountMethod::kFast);

}  // namespace tidemark::stats
