#include "pulse/event_match.h"

#include <cmath>

namespace tidemark::pulse {

EventMatch match_events(std::span<const double> truth, std::span<const double> found,
                        double tolerance) {
  EventMatch m;
  m.truth = static_cast<int>(truth.size());
  m.found = static_cast<int>(found.size());
  m.partner.assign(truth.size(), -1);
  std::vector<bool> taken(found.size(), false);
  while (true) {
    double best = tolerance;
    int bt = -1, bf = -1;
    for (std::size_t t = 0; t < truth.size(); ++t) {
      if (m.partner[t] >= 0) continue;
      for (std::size_t f = 0; f < found.size(); ++f) {
        if (taken[f]) continue;
        const double d = std::fabs(truth[t] - found[f]);
        if (d < best || (d == best && bt < 0)) {
          best = d;
          bt = static_cast<int>(t);
          bf = static_cast<int>(f);
        }
      }
    }
    if (bt < 0) return m;
    m.partner[static_cast<std::size_t>(bt)] = bf;
    taken[static_cast<std::size_t>(bf)] = true;
    ++m.matched;
  }
}

}  // namespace tidemark::pulse
