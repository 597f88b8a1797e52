#pragma once
// What a Periodic calculation writes: the listing, the log lines and the answers block.
//
//   Periodic Rhythm Analysis of lh.dat
//
//    Points used =    142  (missing    2, REPS 0    0); weights 1/SEM^2
//    Trial periods =  3000 from     30.000     to     720.00
//
//    Rank         Period          Power     FAP Baluev    FAP Permut.
//       1         90.123        0.41234     0.12345E-08    0.99900E-03
//   ...
//
//    Rhythm fit at Period =     90.123     with  2 harmonic(s)
//   ...
// Numbers in 1PG15.5; times of day as HH:MM when the times are minutes from midnight.
#include <string>
#include <vector>

#include "stats/periodic_gls.h"
#include "stats/periodic_harmonics.h"
#include "stats/periodic_significance.h"

namespace tidemark::stats {

struct PeriodicReport {
  const std::string& file_name;
  const PeriodicSeries& series;
  const PeriodogramResult& periodogram;
  const PeaksResult& peaks;
  int cycles = 0;
  const HarmonicFitResult& fit;
  bool clock_times = false;  // the times are minutes from midnight
};

// "HH:MM" of a time in minutes from midnight, taken modulo one day.
std::string clock_time(double minutes);

std::string periodic_listing(const PeriodicReport& report);

// The log lines of a successful calculation: the best peak and the fit.
std::vector<std::string> periodic_log_lines(const PeriodicReport& report);

// The answers block.
std::string periodic_answers(const PeriodicReport& report);

}  // namespace tidemark::stats
