#pragma once
// The one-shot options of the command line: each does one action, after which the
// program ends.
#include "shell/command_line.h"
#include "shell/session.h"

namespace tidemark::shell {

// Carries out `line.one_shot` (-EDIT, -HELP, -CD, -PRINT or -SHELL); a failure is
// reported through the session and makes the exit status 1.
void run_one_shot(const CommandLine& line, Session& session);

}  // namespace tidemark::shell
