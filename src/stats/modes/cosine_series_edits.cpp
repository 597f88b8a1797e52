#include "stats/modes/cosine_series_edits.h"

namespace tidemark::stats {

void CosineSeriesEdits::subtract(data::Store& store, int index, const CosineValues& values) {
  data::DataSet& set = store.at(index);
  if (values[kPeriod] <= 0) return;
  if (original_index_ != index) {
    original_y_ = set.y();
    original_index_ = index;
  }
  subtract_cosine(values, set.x(), set.y());
  set.modified = true;
}

bool CosineSeriesEdits::reset(data::Store& store, int index) {
  data::DataSet& set = store.at(index);
  if (original_index_ != index || original_y_.size() != set.y().size()) return false;
  if (set.y() != original_y_) {
    set.y() = original_y_;
    set.modified = true;
  }
  return true;
}

std::string CosineSeriesEdits::store_copy(data::Store& store) {
  const int current = store.current_index();
  data::DataSet copy = store.current();
  const auto dot = copy.file_name.rfind('.');
  copy.file_name.insert(dot == std::string::npos ? copy.file_name.size() : dot, "_cos");
  copy.handle += "_cos";
  copy.modified = true;
  std::string name = copy.file_name;
  store.append(std::move(copy));
  store.select(current);
  return name;
}

}  // namespace tidemark::stats
