#pragma once
// The model parameters a user sets by command, and how they reach the model.
//
//   DOSE_RESPONSE_PARAMETER "Delay 1" 10 0 60 FIT
//
// sets the start, lower and upper bound and the fit/hold flag of one parameter, named as
// the kernel names it ("Delay 1" .. "Hill 5", "Basal", "Half-Life", "Half-Life 2",
// "Fraction 2", "Initial"; letter case ignored, the quotes optional). What the user set
// overrides the defaults a calculation takes from the data (srquant_defaults.h).
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "feedback/response_model.h"

namespace tidemark::feedback {

// Every name a parameter may have, for the largest model (five inputs), in the kernel's
// order.
const std::vector<std::string>& settable_parameter_names();

// One parameter as a command sets it.
struct ParameterSetting {
  std::string name;  // as settable_parameter_names() writes it
  Bounded value;
};

// The command's argument read, or why it does not read (naming the parameter when the
// name was read): an unknown name, a number that does not read or is not finite, a word
// other than FIT or HOLD, lower above upper, a start outside the bounds.
struct ParameterParse {
  ParameterSetting setting;
  std::string problem;  // empty when it reads
  bool ok() const { return problem.empty(); }
};

// Reads `name start lower upper FIT|HOLD`.
ParameterParse parse_parameter_setting(std::string_view argument);

// What the user has set, by parameter name; a later setting replaces an earlier one.
using ParameterSettings = std::map<std::string, Bounded>;

// The model's parameters in the kernel's order (parameter_names()), each a pointer into
// `model`.
std::vector<Bounded*> parameter_slots(ResponseModel& model);

// Puts each setting into the model when the model has that parameter (an input beyond
// the model's count is skipped); answers the names put.
std::vector<std::string> apply_settings(ResponseModel& model, const ParameterSettings& settings);

}  // namespace tidemark::feedback
