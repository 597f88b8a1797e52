#pragma once
// Stand-ins for the parts of the program that are not built yet: each consumes the
// commands that belong to it and answers plainly that it is not available.
#include <memory>

#include "shell/session.h"

namespace tidemark::shell {

// The graph view's commands (LOAD_GRF, PRINT_GRF, SAVE_GRF_PNG, NEXT_GRAPH, ...):
// "Graphics are not available in this version."
std::unique_ptr<CommandHandler> graphics_not_available();

// SPREADSHEET and the SPREADSHEET_ commands: "The data spreadsheet is not available in
// this version."
std::unique_ptr<CommandHandler> spreadsheet_not_available();

}  // namespace tidemark::shell
