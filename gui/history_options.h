#pragma once
// The graph option states a run has set, read from its command history: every
// GRF_OPTION the shell carried out is recorded there as `GRF_OPTION "label" ON` (or
// OFF), whether a check box, a typed command or a command file issued it. The graph
// view's check boxes follow the states so read.
#include <string_view>

#include "graphics/plot_options.h"

namespace tidemark::gui {

// Applies the GRF_OPTION lines of `history` (whole lines of a command history, in
// order) to `states`; other lines, and GRF_OPTION lines that do not read, change nothing.
void apply_option_lines(std::string_view history, graphics::OptionStates& states);

}  // namespace tidemark::gui
