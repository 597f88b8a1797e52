#include "core/run_id.h"

#include <algorithm>

namespace tidemark::core {

std::string run_identifier(Random& random) {
  std::string id(kRunIdLength, ' ');
  for (char& letter : id) {
    const int position = std::clamp(static_cast<int>(1 + 25 * random.uniform()), 1, 26);
    letter = static_cast<char>('A' + position - 1);
  }
  return id;
}

}  // namespace tidemark::core
