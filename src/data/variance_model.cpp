#include "data/variance_model.h"

#include <cmath>
#include <vector>

namespace tidemark::data {
namespace {

// DY / Y of the valid points among first..last (1-based, inclusive).
std::vector<double> cv_ratios(const DataSet& set, int first, int last) {
  std::vector<double> ratios;
  for (int i = first - 1; i < last; ++i) {
    if (is_valid_point(set.y()[i], set.reps()[i])) {
      ratios.push_back(double(set.dy()[i]) / double(set.y()[i]));
    }
  }
  return ratios;
}

}  // namespace

int valid_point_count(const DataSet& set, int first, int last) {
  int count = 0;
  for (int i = first - 1; i < last; ++i) count += is_valid_point(set.y()[i], set.reps()[i]);
  return count;
}

bool has_constant_cv(const DataSet& set, int first, int last) {
  const std::vector<double> ratios = cv_ratios(set, first, last);
  if (ratios.size() < 2) return false;
  const double n = double(ratios.size());
  double sum = 0;
  for (double r : ratios) sum += r;
  const double mean = sum / n;
  double squares = 0;
  for (double r : ratios) squares += (r - mean) * (r - mean);
  return 1000 * std::sqrt(squares / (n - 1)) < std::abs(mean);
}

}  // namespace tidemark::data
