// The detection grid of AutoDecon beside Cluster8: simulated LH-like series at sampling
// intervals of 5, 10 and 20 min and noise CVs of 5, 10 and 15 %, the same series for
// both methods. Prints one Markdown table row per cell.
//   decon_grid [series per cell = 100] [seed = 1] [critical P = 0.2] [intervals = 10,20,5]
//   [CVs = 0.05,0.1,0.15]
#include <fmt/format.h>

#include <sstream>
#include <string>
#include <vector>

#include <ctime>
#include <cstdlib>

#include "core/random.h"
#include "pulse/decon_quality.h"

namespace {

// "10,20,5" -> {10, 20, 5}
std::vector<double> numbers(const char* text) {
  std::vector<double> out;
  std::istringstream list(text);
  for (std::string item; std::getline(list, item, ',');) out.push_back(std::atof(item.c_str()));
  return out;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace tidemark;
  const int series = argc > 1 ? std::atoi(argv[1]) : 100;
  const auto seed = static_cast<std::uint64_t>(argc > 2 ? std::atoll(argv[2]) : 1);
  const double critical_p = argc > 3 ? std::atof(argv[3]) : 0.2;
  // 10 min first: the cell of the targets; 5 min, the slowest, last.
  const std::vector<double> intervals = numbers(argc > 4 ? argv[4] : "10,20,5");
  const std::vector<double> cvs = numbers(argc > 5 ? argv[5] : "0.05,0.1,0.15");
  fmt::print("| interval | CV | AutoDecon sens. | AutoDecon FP | Cluster8 sens. | Cluster8 FP "
             "| HL err. | SD err. | basal err. | mass err. | failed | CPU s / series |\n");
  fmt::print("|---|---|---|---|---|---|---|---|---|---|---|---|\n");
  for (const double interval : intervals) {
    for (const double cv : cvs) {
      core::Random random(seed);
      const std::clock_t begin = std::clock();  // processor time: the machine is shared
      const pulse::CellQuality q = pulse::measure_cell({interval, cv, series, critical_p}, random);
      const double seconds = double(std::clock() - begin) / CLOCKS_PER_SEC;
      const auto& a = q.auto_decon;
      const auto& c = q.cluster8;
      fmt::print("| {:g} min | {:g} % | {:.1f} % | {:.1f} % | {:.1f} % | {:.1f} % | {:.1f} % "
                 "| {:.1f} % | {:.1f} % | {:.1f} % | {} | {:.3f} |\n",
                 interval, cv * 100, a.sensitivity() * 100, a.false_positive_share() * 100,
                 c.sensitivity() * 100, c.false_positive_share() * 100, a.half_life_error * 100,
                 a.sd_error * 100, a.basal_error * 100, a.mass_error * 100,
                 q.failed + q.auto_init_failed, seconds / series);
      std::fflush(stdout);
    }
  }
  return 0;
}
