#pragma once
// The series of graphs a run has produced or loaded, in order, with the one now shown,
// and the states of the graph options the user has set (GRF_OPTION). NEXT_GRAPH and
// PREVIOUS_GRAPH step through it; a new graph joins at the end and is shown.
#include <cstddef>
#include <string>
#include <vector>

#include "graphics/plot_options.h"

namespace tidemark::shell {

class GraphSeries {
 public:
  bool empty() const { return sources_.empty(); }
  std::size_t size() const { return sources_.size(); }
  std::size_t position() const { return current_; }

  // The source of the graph now shown; empty() must be false.
  const std::string& current() const { return sources_[current_]; }

  // Adds `source` at the end and shows it.
  void add(std::string source);
  // Replaces the source of the graph now shown (after it was edited).
  void replace_current(std::string source);
  // Shows the next (+1) or previous (-1) graph; false, and nothing changes, at the end.
  bool step(int direction);

  // The options the user has set, by label; kept for every graph that follows.
  const graphics::OptionStates& states() const { return states_; }
  void set_option(const std::string& label, bool checked) { states_[label] = checked; }

 private:
  std::vector<std::string> sources_;
  std::size_t current_ = 0;
  graphics::OptionStates states_;
};

}  // namespace tidemark::shell
