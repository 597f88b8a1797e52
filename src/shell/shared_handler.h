#pragma once
// The shared command handler: the commands that belong to no one analysis (files,
// run files, graphics, data set selection, folder change, modes, exit). The mode loop
// offers it every command while no mode runs; the module frame offers it each command
// first. Besides the commands of the menus: ON_ERROR STOP / ON_ERROR CONTINUE (whether
// the run ends at the first command that fails).
#include <string_view>

#include "shell/session.h"

namespace tidemark::shell {

// Carries out `command` when it is one of the shared commands (matched by its leading
// characters, letter case ignored) and answers true; false when it is not one.
bool handle_shared_command(std::string_view command, Session& session);

// The end of the commands (the end of standard input or of the command file, Ctrl-D, a
// stop under ON_ERROR STOP) ends the program as EXIT does, without the question: the
// stop is reported naming the command, and every data set modified and not written is
// named.
void end_of_input(Session& session);

}  // namespace tidemark::shell
