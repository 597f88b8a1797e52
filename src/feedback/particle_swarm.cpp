#include "feedback/particle_swarm.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/random.h"

namespace tidemark::feedback {
namespace {

constexpr double kInertia = 0.7298;
constexpr double kAcceleration = 1.49618;

struct Particle {
  std::vector<double> x, v, best;
  double value = std::numeric_limits<double>::infinity();
  double best_value = std::numeric_limits<double>::infinity();
};

}  // namespace

SearchResult particle_swarm(const Objective& f, std::span<const double> start,
                           std::span<const double> lower, std::span<const double> upper,
                           const SwarmOptions& options) {
  const std::size_t dim = start.size();
  const auto size = static_cast<std::size_t>(std::max(options.size, 1));
  core::Random random(options.seed);
  std::vector<Particle> swarm(size);
  for (std::size_t p = 0; p < size; ++p) {
    Particle& particle = swarm[p];
    particle.x.resize(dim);
    particle.v.resize(dim);
    for (std::size_t d = 0; d < dim; ++d) {
      const double width = upper[d] - lower[d];
      particle.x[d] = p == 0 ? start[d] : lower[d] + width * random.uniform();
      particle.v[d] = width * (random.uniform() - 0.5);
    }
  }

  SearchResult result;
  result.best.assign(start.begin(), start.end());
  result.value = std::numeric_limits<double>::infinity();
  const long total = static_cast<long>(size) * (options.iterations + 1);
  for (int iteration = 0; iteration <= options.iterations; ++iteration) {
    core::ParallelOptions parallel{options.parallel.threads, {}};
    if (options.parallel.progress) {
      const long before = result.evaluations;
      parallel.progress = [&options, before, total](long done, long) {
        return options.parallel.progress(before + done, total);
      };
    }
    const bool finished = core::parallel_for(
        static_cast<long>(size), parallel, [&swarm, &f](int, long first, long last) {
          for (long p = first; p < last; ++p) {
            Particle& particle = swarm[static_cast<std::size_t>(p)];
            const double value = f(particle.x);
            particle.value = std::isnan(value) ? std::numeric_limits<double>::infinity() : value;
          }
        });
    result.evaluations += static_cast<long>(size);
    if (!finished) return result;
    for (Particle& particle : swarm) {
      if (particle.value < particle.best_value) {
        particle.best_value = particle.value;
        particle.best = particle.x;
      }
      if (particle.value < result.value) {
        result.value = particle.value;
        result.best = particle.x;
      }
    }
    if (iteration == options.iterations) {
      result.complete = true;
      break;
    }
    for (Particle& particle : swarm) {
      for (std::size_t d = 0; d < dim; ++d) {
        const double width = upper[d] - lower[d];
        const double own = particle.best.empty() ? particle.x[d] : particle.best[d];
        double v = kInertia * particle.v[d] +
                   kAcceleration * random.uniform() * (own - particle.x[d]) +
                   kAcceleration * random.uniform() * (result.best[d] - particle.x[d]);
        v = std::clamp(v, -width, width);
        double x = particle.x[d] + v;
        if (x < lower[d] || x > upper[d]) {
          x = std::clamp(x, lower[d], upper[d]);
          v = 0;
        }
        particle.x[d] = x;
        particle.v[d] = v;
      }
    }
  }
  return result;
}

}  // namespace tidemark::feedback
