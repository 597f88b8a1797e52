#include "feedback/modes/srquant_parameters.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <sstream>

#include "core/text.h"

namespace tidemark::feedback {

namespace {

// The known name the argument begins with (the longest, so "Half-Life 2" wins over
// "Half-Life"), followed by a blank or the end; the rest of the argument in `rest`.
std::string leading_name(std::string_view argument, std::string_view& rest) {
  std::string found;
  for (const std::string& name : settable_parameter_names()) {
    if (name.size() <= found.size() || !core::starts_with_nocase(argument, name)) continue;
    if (argument.size() > name.size() && argument[name.size()] != ' ' &&
        argument[name.size()] != '\t')
      continue;
    found = name;
  }
  rest = argument.substr(found.size());
  return found;
}

// The known name equal to `text`, letter case and surrounding blanks ignored.
std::string known_name(std::string_view text) {
  const std::string wanted = core::to_upper(core::trim(text));
  for (const std::string& name : settable_parameter_names()) {
    if (core::to_upper(name) == wanted) return name;
  }
  return {};
}

bool read_number(const std::string& word, double& x) {
  const auto [end, ec] = std::from_chars(word.data(), word.data() + word.size(), x);
  return ec == std::errc() && end == word.data() + word.size() && std::isfinite(x);
}

}  // namespace

const std::vector<std::string>& settable_parameter_names() {
  static const std::vector<std::string> names = [] {
    ResponseModel largest;
    largest.inputs.resize(kMaxInputs);
    return parameter_names(largest);
  }();
  return names;
}

ParameterParse parse_parameter_setting(std::string_view argument) {
  ParameterParse r;
  argument = core::trim(argument);
  std::string_view rest;
  if (argument.starts_with('"')) {
    const std::size_t close = argument.find('"', 1);
    if (close == std::string_view::npos) {
      r.problem = "The parameter's name has no closing double quote.";
      return r;
    }
    r.setting.name = known_name(argument.substr(1, close - 1));
    if (r.setting.name.empty()) {
      r.problem = fmt::format(
          "There is no parameter \"{}\": the names are Delay, Width, Efficacy, EC50 and Hill "
          "with the input's number (1 to 5), Basal, Half-Life, Half-Life 2, Fraction 2 and "
          "Initial.",
          argument.substr(1, close - 1));
      return r;
    }
    rest = argument.substr(close + 1);
  } else {
    r.setting.name = leading_name(argument, rest);
    if (r.setting.name.empty()) {
      std::string_view first = argument.substr(0, argument.find(' '));
      r.problem = fmt::format(
          "There is no parameter \"{}\": name it in double quotes, as \"Delay 1\" or "
          "\"Half-Life\".",
          first);
      return r;
    }
  }
  const std::string& name = r.setting.name;
  std::istringstream in{std::string(rest)};
  std::vector<std::string> words;
  for (std::string w; in >> w;) words.push_back(w);
  if (words.size() != 4) {
    r.problem = fmt::format("{}: give the start, the lower bound, the upper bound and FIT or HOLD.",
                            name);
    return r;
  }
  Bounded& b = r.setting.value;
  double* numbers[] = {&b.start, &b.lower, &b.upper};
  for (int k = 0; k < 3; ++k) {
    if (!read_number(words[k], *numbers[k])) {
      r.problem = fmt::format("{}: \"{}\" is not a number.", name, words[k]);
      return r;
    }
  }
  const std::string flag = core::to_upper(words[3]);
  if (flag != "FIT" && flag != "HOLD") {
    r.problem = fmt::format("{}: \"{}\" is neither FIT nor HOLD.", name, words[3]);
    return r;
  }
  b.fit = flag == "FIT";
  if (b.lower > b.upper) {
    r.problem = fmt::format("{}: the lower bound {} lies above the upper bound {}.", name, b.lower,
                            b.upper);
  } else if (b.start < b.lower || b.start > b.upper) {
    r.problem = fmt::format("{}: the start {} lies outside the bounds {} to {}.", name, b.start,
                            b.lower, b.upper);
  }
  return r;
}

std::vector<Bounded*> parameter_slots(ResponseModel& model) {
  std::vector<Bounded*> slots;
  for (InputModel& input : model.inputs) {
    for (Bounded* b : {&input.delay, &input.width, &input.efficacy, &input.ec50, &input.hill}) {
      slots.push_back(b);
    }
  }
  for (Bounded* b :
       {&model.basal, &model.half_life, &model.half_life_2, &model.fraction_2, &model.initial}) {
    slots.push_back(b);
  }
  return slots;
}

std::vector<std::string> apply_settings(ResponseModel& model, const ParameterSettings& settings) {
  const std::vector<std::string> names = parameter_names(model);
  const std::vector<Bounded*> slots = parameter_slots(model);
  std::vector<std::string> applied;
  for (std::size_t k = 0; k < names.size(); ++k) {
    const auto it = settings.find(names[k]);
    if (it == settings.end()) continue;
    *slots[k] = it->second;
    applied.push_back(names[k]);
  }
  return applied;
}

}  // namespace tidemark::feedback
