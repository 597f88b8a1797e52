#pragma once
// The uniform time grid on which the model is evaluated, and the inputs' cover of it.
//
// The step is a quarter of the smallest median sampling interval among the output and
// the inputs, so every sampling interval holds at least about four grid steps; the
// grid runs from the first to the last output time (regularly sampled outputs fall on
// grid points). At most kMaxGridPoints points: a longer series gets a coarser step.
#include <cstddef>
#include <string>

#include "feedback/response_model.h"

namespace tidemark::feedback {

inline constexpr int kGridSubdivisions = 4;
inline constexpr std::size_t kMaxGridPoints = 200'000;

struct TimeGrid {
  double first = 0;
  double step = 1;
  std::size_t count = 1;
  double at(std::size_t j) const { return first + static_cast<double>(j) * step; }
};

TimeGrid make_time_grid(const ResponseData& data);

// Empty when input `i` covers the output times delayed by every delay in
// [delay_low, delay_high]; otherwise a message naming the input and the times.
std::string coverage_gap(const ResponseData& data, std::size_t i, double delay_low,
                         double delay_high);

}  // namespace tidemark::feedback
