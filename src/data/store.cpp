#include "data/store.h"

#include <utility>

namespace tidemark::data {

void Store::append(DataSet set) {
  sets_.push_back(std::move(set));
  current_ = count() - 1;
}

void Store::reset() {
  sets_.clear();
  current_ = -1;
}

bool Store::select(int index) {
  if (index < 0 || index >= count()) return false;
  current_ = index;
  return true;
}

}  // namespace tidemark::data
