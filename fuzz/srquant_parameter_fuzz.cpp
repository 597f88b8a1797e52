// Reads the input as the argument of SRQuant's parameter command and checks what the
// mode relies on: an accepted setting names a parameter of the model, its numbers are
// finite with lower <= start <= upper, and written back as a command argument (numbers
// in their shortest form that reads back) it reads again to the same setting.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "feedback/modes/srquant_parameters.h"

namespace {

void check(bool invariant) {
  if (!invariant) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tidemark::feedback;
  const std::string_view argument(reinterpret_cast<const char*>(data), size);
  const ParameterParse parsed = parse_parameter_setting(argument);
  if (!parsed.ok()) {
    check(!parsed.problem.empty());
    return 0;
  }
  const ParameterSetting& s = parsed.setting;
  const auto& names = settable_parameter_names();
  check(std::find(names.begin(), names.end(), s.name) != names.end());
  const Bounded& b = s.value;
  check(std::isfinite(b.start) && std::isfinite(b.lower) && std::isfinite(b.upper));
  check(b.lower <= b.start && b.start <= b.upper);
  const ParameterParse again = parse_parameter_setting(fmt::format(
      "\"{}\" {} {} {} {}", s.name, b.start, b.lower, b.upper, b.fit ? "FIT" : "HOLD"));
  check(again.ok() && again.setting.name == s.name && again.setting.value.start == b.start &&
        again.setting.value.lower == b.lower && again.setting.value.upper == b.upper &&
        again.setting.value.fit == b.fit);
  return 0;
}
