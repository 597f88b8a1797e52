#pragma once
// The shared command handler: the commands that belong to no one analysis (files,
// run files, graphics, data set selection, folder change, modes, exit). The mode loop
// offers it every command while no mode runs; the module frame offers it each command
// first.
#include <string_view>

#include "shell/session.h"

namespace tidemark::shell {

// Carries out `command` when it is one of the shared commands (matched by its leading
// characters, letter case ignored) and answers true; false when it is not one.
bool handle_shared_command(std::string_view command, Session& session);

}  // namespace tidemark::shell
