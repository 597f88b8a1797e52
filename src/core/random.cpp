#include "core/random.h"

#include <bit>

namespace tidemark::core {

std::uint64_t splitmix64(std::uint64_t& state) {
  std::uint64_t z = (state += 0x9E3779B97F4A7C15ULL);
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
  return z ^ (z >> 31);
}

Random::Random(std::uint64_t seed) {
  this->seed(seed);
}

Random Random::from_state(const std::array<std::uint64_t, 4>& state) {
  Random random;
  for (std::size_t i = 0; i < 4; ++i) random.state_[i] = state[i];
  return random;
}

void Random::seed(std::uint64_t seed) {
  // SplitMix64 never yields four zeros in a row, so the state is never all zero.
  for (auto& word : state_) word = splitmix64(seed);
}

std::uint64_t Random::next() {
  const std::uint64_t result = std::rotl(state_[1] * 5, 7) * 9;
  const std::uint64_t t = state_[1] << 17;
  state_[2] ^= state_[0];
  state_[3] ^= state_[1];
  state_[1] ^= state_[2];
  state_[0] ^= state_[3];
  state_[2] ^= t;
  state_[3] = std::rotl(state_[3], 45);
  return result;
}

double Random::uniform() {
  return static_cast<double>(next() >> 11) * 0x1.0p-53;
}

void Random::uniform(std::span<double> out) {
  for (double& u : out) u = uniform();
}

double Random::gaussian12() {
  double sum = 0;
  for (int i = 0; i < 12; ++i) sum += uniform();
  return sum - 6;
}

}  // namespace tidemark::core
