#pragma once
// What a Concordance calculation found, and the texts made from it: the listing, the
// dialog's descriptions of the two series and the rows of its probability grid.
#include <string>
#include <string_view>
#include <vector>

#include "stats/concordance_match.h"
#include "stats/concordance_monte_carlo.h"

namespace tidemark::stats {

// One series as the listing describes it.
struct ConcordanceSeries {
  std::string file_name;
  int points = 0;
  std::vector<double> events;  // event (peak) times
};

struct ConcordanceReport {
  ConcordanceSeries a, b;
  CoincidenceRange range;
  std::vector<CoincidentPair> pairs;  // the data's coincidences
  long cycles = 0;
  ProbabilityTable table;
};

// The grid's text before any calculation.
inline constexpr std::string_view kConcordanceGridInitial = "P(  0)=1.0000        Sum Q=0.0000";

// The listing:
//   Monte-Carlo Concordance Calculation
//
//    Series A: lh.dat        48 points     7 peaks
//    Series B: fsh.dat       48 points     5 peaks
//    A coincidence range of     -5.00     to      5.00     yielded    3 coincidence peaks
//    Monte-Carlo cycles: 100000
//
//    P(#events=  0) =     0.120
//    P(#events>=  0) =      1.00
//   ...
// Counts I5 (the cycles I10, k I3) and reals 1PG15.3.
std::string concordance_listing(const ConcordanceReport& report);

// What the dialog's read-only field shows of one series: "lh.dat   48 points    7 peaks",
// as the listing's series line.
std::string series_description(const ConcordanceSeries& series);

// One grid row per k = 0 .. min(nA, nB): "P(%3d)=%6.4f        Sum Q=%6.4f" of P(k), Q(k).
std::vector<std::string> concordance_grid_rows(const ProbabilityTable& table);

}  // namespace tidemark::stats
