#pragma once
// Coincidence of events of two series: the first-free matcher in list order.
#include <span>
#include <utility>
#include <vector>

namespace tidemark::stats {

// An event b of B coincides with an event a of A when lo <= b − a <= hi.
struct CoincidenceRange {
  double lo = 0;
  double hi = 0;
};

// One coincidence: the index of the A event and of the B event it took (0-based).
using CoincidentPair = std::pair<int, int>;

// For each A event in list order, takes the first B event in list order that is still
// free and coincides with it. A B event matches at most one A event; earlier A events
// have first choice; the lists are not sorted. Returns the pairs in A order.
std::vector<CoincidentPair> match_events(std::span<const double> a, std::span<const double> b,
                                         CoincidenceRange range);

// The number of pairs match_events would return, without recording them. `taken` is
// working space (resized to b.size()), so that repeated counts allocate nothing.
int count_coincidences(std::span<const double> a, std::span<const double> b, CoincidenceRange range,
                       std::vector<char>& taken);

}  // namespace tidemark::stats
