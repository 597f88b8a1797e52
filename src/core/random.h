#pragma once
// The program's one seedable random generator and the deviates drawn from it.
// Results depend only on the seed.
//
// The generator is xoshiro256** 1.0 (D. Blackman and S. Vigna, "Scrambled linear
// pseudorandom number generators", ACM TOMS 47(4), 2021): 256 bits of state, period
// 2^256 - 1. A 64-bit seed is spread over the state by four successive outputs of
// SplitMix64, as the authors recommend.
#include <array>
#include <cstdint>
#include <span>

namespace tidemark::core {

// SplitMix64 (G. Steele, D. Lea, C. Flood, OOPSLA 2014): advances `state` by
// 0x9E3779B97F4A7C15 and returns the mixed value of the new state.
std::uint64_t splitmix64(std::uint64_t& state);

class Random {
 public:
  explicit Random(std::uint64_t seed = 1);

  // A generator continuing from the given xoshiro256** state (not all zero).
  static Random from_state(const std::array<std::uint64_t, 4>& state);

  // Restarts the sequence from `seed`.
  void seed(std::uint64_t seed);

  // The next 64-bit output: rotl(s1 × 5, 7) × 9, then the state advances.
  std::uint64_t next();

  // Uniform deviate on [0, 1): the top 53 bits of next() times 2^-53; never returns 1.
  double uniform();

  // Fills `out` with successive uniform deviates on [0, 1).
  void uniform(std::span<double> out);

  // Approximately Gaussian deviate with mean 0 and SD 1: the sum of twelve uniform
  // deviates minus 6 (range [-6, 6), variance exactly 1).
  double gaussian12();

 private:
  std::uint64_t state_[4];
};

}  // namespace tidemark::core
