#pragma once
// The program-wide data set store: the records read in this run and the current one.
#include <vector>

#include "data/dataset.h"

namespace tidemark::data {

class Store {
 public:
  // Number of data sets held (the data set count).
  int count() const { return static_cast<int>(sets_.size()); }
  bool empty() const { return sets_.empty(); }

  // Appends a record and makes it current. It gets an identity of its own, never given
  // to another record in this run (not even after a reset).
  void append(DataSet set);

  // Empties the store ("Reset the Program").
  void reset();

  // Makes data set `index` (0-based) current; false, and nothing changes, when there
  // is no such set.
  bool select(int index);

  // The current data set; only valid when the store is not empty.
  int current_index() const { return current_; }
  DataSet& current() { return sets_[current_]; }
  const DataSet& current() const { return sets_[current_]; }

  DataSet& at(int index) { return sets_[index]; }
  const DataSet& at(int index) const { return sets_[index]; }

  // The identity of data set `index`, and the index of the data set with identity `id`
  // (-1 when it is gone).
  long identity(int index) const { return ids_[static_cast<std::size_t>(index)]; }
  int find_identity(long id) const;

 private:
  std::vector<DataSet> sets_;
  std::vector<long> ids_;  // one per set
  long next_id_ = 1;
  int current_ = -1;
};

}  // namespace tidemark::data
