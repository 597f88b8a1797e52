#include "data/store.h"

#include <utility>

namespace tidemark::data {

void Store::append(DataSet set) {
  sets_.push_back(std::move(set));
  ids_.push_back(next_id_++);
  current_ = count() - 1;
}

void Store::reset() {
  sets_.clear();
  ids_.clear();
  current_ = -1;
}

bool Store::select(int index) {
  if (index < 0 || index >= count()) return false;
  current_ = index;
  return true;
}

int Store::find_identity(long id) const {
  for (std::size_t i = 0; i < ids_.size(); ++i) {
    if (ids_[i] == id) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace tidemark::data
