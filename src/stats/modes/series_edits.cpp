#include "stats/modes/series_edits.h"

namespace tidemark::stats {

void SeriesEdits::subtract(data::Store& store, int index, const Subtraction& subtraction) {
  data::DataSet& set = store.at(index);
  if (original_index_ != index) {
    original_y_ = set.y();
    original_index_ = index;
  }
  subtraction(set.x(), set.y());
  set.modified = true;
}

bool SeriesEdits::reset(data::Store& store, int index) {
  data::DataSet& set = store.at(index);
  if (original_index_ != index || original_y_.size() != set.y().size()) return false;
  if (set.y() != original_y_) {
    set.y() = original_y_;
    set.modified = true;
  }
  return true;
}

std::string SeriesEdits::store_copy(data::Store& store, std::string_view suffix) {
  const int current = store.current_index();
  data::DataSet copy = store.current();
  const auto dot = copy.file_name.rfind('.');
  copy.file_name.insert(dot == std::string::npos ? copy.file_name.size() : dot, suffix);
  copy.handle += suffix;
  copy.modified = true;
  std::string name = copy.file_name;
  store.append(std::move(copy));
  store.select(current);
  return name;
}

}  // namespace tidemark::stats
