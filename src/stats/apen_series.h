#pragma once
// The working series of the ApEn calculation and its two optional transformations.
#include <cstdint>
#include <vector>

namespace tidemark::stats {

// Values, their standard errors and usable flags (0 = missing), all of length N.
struct WorkingSeries {
  std::vector<float> x;
  std::vector<float> s;
  std::vector<std::uint8_t> usable;

  std::size_t size() const { return x.size(); }
};

// First differences, N → N − 1 (an empty or one-point series becomes empty):
//   x(i) ← x(i+1) − x(i),  s(i) ← sqrt(s(i)² + s(i+1)²),  usable(i) ← usable(i) ∧ usable(i+1).
void difference(WorkingSeries& series);

// Converts every value, usable or not, to (x − mean) / SD, with mean and SD over the n
// usable points in double precision, SD = sqrt(|Σ (x − mean)² / (n − 1)|). The
// standard errors keep their units. With fewer than two usable points, or SD = 0 (a
// constant series), no SD can divide: the values become x − mean and the function
// answers false.
bool to_z_scores(WorkingSeries& series);

}  // namespace tidemark::stats
