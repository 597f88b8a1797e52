#include "formula/eval_error.h"

#include <array>
#include <string_view>

namespace tidemark::formula {

std::string eval_error_text(int type) {
  static constexpr std::array<std::string_view, 4> kMessages = {
      "Division by zero", "Argument of SQRT negative", "Argument of LOG negative",
      "Argument of ASIN or ACOS illegal"};
  std::string text;
  if (type >= kDivisionByZero && type <= kAsinAcosIllegal) text = kMessages[type - 1];
  text.resize(kEvalMessageWidth, ' ');
  return text;
}

}  // namespace tidemark::formula
