#include "graphics/pp_units.h"

namespace tidemark::graphics::pp {

UnitPool::UnitPool(int first, int count)
    : first_(first), in_use_(static_cast<std::size_t>(count > 0 ? count : 0), false) {}

int UnitPool::acquire() {
  for (std::size_t i = 0; i < in_use_.size(); ++i) {
    if (!in_use_[i]) {
      in_use_[i] = true;
      return first_ + static_cast<int>(i);
    }
  }
  return 0;
}

void UnitPool::release(int unit) {
  const int index = unit - first_;
  if (index >= 0 && static_cast<std::size_t>(index) < in_use_.size()) in_use_[index] = false;
}

}  // namespace tidemark::graphics::pp
