#include "shell/graph_series.h"

#include <utility>

namespace tidemark::shell {

void GraphSeries::add(std::string source) {
  sources_.push_back(std::move(source));
  current_ = sources_.size() - 1;
}

void GraphSeries::replace_current(std::string source) {
  if (sources_.empty()) return add(std::move(source));
  sources_[current_] = std::move(source);
}

bool GraphSeries::step(int direction) {
  if (direction > 0 && current_ + 1 < sources_.size()) {
    ++current_;
    return true;
  }
  if (direction < 0 && current_ > 0 && !sources_.empty()) {
    --current_;
    return true;
  }
  return false;
}

}  // namespace tidemark::shell
