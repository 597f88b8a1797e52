#pragma once
// What one X_ApEn calculation found, and the listing that shows it.
#include <array>
#include <string>

#include "stats/xapen.h"
#include "stats/xapen_counts.h"
#include "stats/xapen_monte_carlo.h"

namespace tidemark::stats {

// The Ratio of one embedding length: X-ApEn / S with S the mean random X-ApEn, and
//   SD = sqrt(|(SD_noise / S)^2 + (Ratio × SD_random / S)^2|).
// Both are missing (core::kMissing) when S is 0.
struct Ratio {
  double value = 0;
  double sd = 0;
};
Ratio xapen_ratio(double xapen, const MeanSd& noise, const MeanSd& random);

struct XApEnReport {
  std::string a_name, b_name;  // the two data files
  double r = 0;                // R, as a multiple of each series' SD
  int n = 0;                   // points per series
  int cycles = 0;
  XApEn data;
  std::array<MeanSd, 2> noise, random;  // [m - 1]
  std::array<Ratio, 2> ratio;
  HitTable hits;
};

// The summaries of the cycles' values for a report whose data X-ApEn is set.
void summarize_cycles(const XApEnCycles& cycles, XApEnReport& report);

// The listing, one line each:
//   " XApEn Calculation"
//   " <A>  vs. <B>"
//   " R = " 1PG15.5 " * SD"
//   " with <cycles> Monte-Carlo cycles"
//   the eight result lines, e.g. " +Noise XApEn(1,0.20,144) = " mean "+/-" SD, the m = 2
//   random line labelled " Random XApEn(1," as the original listing labels it,
//   a blank line, " Summary of \"Hits\"", the column heads "Lag", "m=0" (matches of
//   templates of length 1) and "m=1" (length 2), and one row per lag -(N-1) .. N-1.
std::string xapen_listing(const XApEnReport& report);

// The eight result lines alone, as the log and the dialog's result fields show them.
std::vector<std::string> xapen_result_lines(const XApEnReport& report);

}  // namespace tidemark::stats
