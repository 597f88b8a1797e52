#pragma once
// The whole program: start-up (folders, run files, registry and default folder, the
// first history line "SEED n"), the command line (one-shot options end the program
// after their action; -@ runs a command file first), the mode loop, and the end (the
// files of the kill list deleted).
#include <string>
#include <vector>

#include "shell/module.h"
#include "shell/platform.h"
#include "ui/ui.h"

namespace tidemark::shell {

// Exit statuses: every command carried out; some command ignored or reporting an error;
// start-up failed.
inline constexpr int kExitOk = 0;
inline constexpr int kExitCommandFailed = 1;
inline constexpr int kExitStartupFailed = 2;

// Runs the program with the arguments after its name and returns its exit status.
// Reads the environment: TIDEMARK_HOME, XDG_DATA_HOME, HOME, COMPUTERNAME, VISUAL,
// EDITOR, SHELL.
int run_program(const ProgramInfo& program, const std::vector<std::string>& args, ui::Ui& ui,
                const ModuleFactories& modules);

}  // namespace tidemark::shell
