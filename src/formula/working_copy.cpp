#include "formula/working_copy.h"

#include "core/text.h"

namespace tidemark::formula {

std::size_t WorkingCopy::typed_position(std::size_t j) const {
  if (j < position.size()) return position[j];
  return position.empty() ? 1 : position.back() + 1;
}

WorkingCopy make_working_copy(std::string_view typed) {
  std::string line = core::cut(typed, kMaxFormulaLength);
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    if (line[i] == '*' && line[i + 1] == '*') {
      line[i] = '^';
      line[i + 1] = ' ';
    }
  }
  WorkingCopy copy;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == ' ') continue;
    copy.text.push_back(line[i]);
    copy.position.push_back(i + 1);
  }
  return copy;
}

}  // namespace tidemark::formula
