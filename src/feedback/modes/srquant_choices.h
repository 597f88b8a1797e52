#pragma once
// The texts of the SRQuant dialog's menus, in the order of the kernel's enums: the
// dialog offers them, SET reads them, and the listing names the choices by them.
#include <array>
#include <string_view>

#include "feedback/response_fit.h"

namespace tidemark::feedback {

inline constexpr std::array<std::string_view, 3> kSpreadingNames{"None", "Gaussian",
                                                                 "Exponential"};
inline constexpr std::array<std::string_view, 2> kDoseNames{"Stimulatory", "Inhibitory"};
inline constexpr std::array<std::string_view, 2> kCombinationNames{"Sum", "Product"};
inline constexpr std::array<std::string_view, 3> kCriterionNames{"Least Squares",
                                                                 "Least Absolute", "Min-Max"};
inline constexpr std::array<std::string_view, 5> kOptimizerNames{
    "Particle Swarm", "Nelder-Mead", "Levenberg-Marquardt", "Swarm then Nelder-Mead",
    "Swarm then Levenberg-Marquardt"};

// The text of a choice: name_of(kDoseNames, DoseResponse::kInhibitory) is "Inhibitory".
template <std::size_t N, typename Enum>
constexpr std::string_view name_of(const std::array<std::string_view, N>& names, Enum value) {
  return names[static_cast<std::size_t>(value)];
}

}  // namespace tidemark::feedback
