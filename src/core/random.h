#pragma once
// The program's one seedable random generator and the deviates drawn from it.
// Results depend only on the seed.
#include <cstdint>
#include <span>

namespace tidemark::core {

class Random {
 public:
  explicit Random(std::uint64_t seed = 1);

  // Restarts the sequence from `seed`.
  void seed(std::uint64_t seed);

  // Uniform deviate on [0, 1); never returns 1.
  double uniform();

  // Fills `out` with successive uniform deviates on [0, 1).
  void uniform(std::span<double> out);

  // Approximately Gaussian deviate with mean 0 and SD 1: the sum of twelve uniform
  // deviates minus 6.
  double gaussian12();

 private:
  std::uint64_t state_[4];
};

}  // namespace tidemark::core
