#include "data/dataset.h"

namespace tidemark::data {

int DataSet::first_point() const {
  if (core::is_missing_int(crop_start) || crop_start < 1 || crop_start > size()) return 1;
  return crop_start;
}

int DataSet::last_point() const {
  if (core::is_missing_int(crop_end) || crop_end > size() || crop_end < first_point()) {
    return size();
  }
  return crop_end;
}

void DataSet::push_point(const std::array<float, kColumnCount>& values) {
  for (int c = 0; c < kColumnCount; ++c) columns[c].push_back(values[c]);
}

}  // namespace tidemark::data
