// The parameter vector of a ResponseModel: names and bounds in the layout fixed by
// response_model.h.
#include <string>
#include <vector>

#include "feedback/response_model.h"

namespace tidemark::feedback {

int parameter_count(const ResponseModel& model) {
  return tail_offset(model) + 5;
}

std::vector<std::string> parameter_names(const ResponseModel& model) {
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(parameter_count(model)));
  for (std::size_t i = 1; i <= model.inputs.size(); ++i) {
    const std::string n = std::to_string(i);
    for (const char* stem : {"Delay ", "Width ", "Efficacy ", "EC50 ", "Hill "}) {
      names.push_back(stem + n);
    }
  }
  for (const char* name : {"Basal", "Half-Life", "Half-Life 2", "Fraction 2", "Initial"}) {
    names.emplace_back(name);
  }
  return names;
}

std::vector<Bounded> parameter_bounds(const ResponseModel& model) {
  std::vector<Bounded> bounds;
  bounds.reserve(static_cast<std::size_t>(parameter_count(model)));
  for (const InputModel& input : model.inputs) {
    Bounded width = input.width;
    // Without spreading the width has no effect: it is held so that no fit wanders in it.
    if (input.spreading == Spreading::kNone) width.fit = false;
    bounds.insert(bounds.end(), {input.delay, width, input.efficacy, input.ec50, input.hill});
  }
  Bounded half_life_2 = model.half_life_2;
  Bounded fraction_2 = model.fraction_2;
  if (model.eliminations == 1) {
    half_life_2.fit = false;
    fraction_2.fit = false;
  }
  bounds.insert(bounds.end(),
                {model.basal, model.half_life, half_life_2, fraction_2, model.initial});
  return bounds;
}

}  // namespace tidemark::feedback
