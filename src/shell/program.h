#pragma once
// The whole program: start-up (folders, run files, registry and default folder, the
// first history line "SEED n"), the command line (one-shot options end the program
// after their action; -@ runs a command file first), the mode loop, and the end (the
// files of the kill list deleted).
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "shell/module.h"
#include "shell/platform.h"
#include "shell/session.h"
#include "ui/ui.h"

namespace tidemark::shell {

// What app/ plugs into the shell: the mode drivers in menu order, and the makers of the
// command handlers of the graph view, the simulator and the data spreadsheet. An empty
// maker leaves that part out: the graph view and the spreadsheet then answer that they
// are not available, and there are no simulation commands.
struct Components {
  using HandlerMaker = std::function<std::unique_ptr<CommandHandler>()>;
  ModuleFactories modules;
  HandlerMaker graphics;
  HandlerMaker simulator;
  HandlerMaker spreadsheet;
};

// Exit statuses: every command carried out; some command ignored or reporting an error;
// start-up failed; the run stopped at a failed command under ON_ERROR STOP (the message
// "Run Stopped" names the command).
inline constexpr int kExitOk = 0;
inline constexpr int kExitCommandFailed = 1;
inline constexpr int kExitStartupFailed = 2;
inline constexpr int kExitStopped = 3;

// Runs the program with the arguments after its name and returns its exit status.
// Reads the environment: TIDEMARK_HOME, XDG_DATA_HOME, HOME, COMPUTERNAME, VISUAL,
// EDITOR, SHELL.
int run_program(const ProgramInfo& program, const std::vector<std::string>& args, ui::Ui& ui,
                const Components& components);

}  // namespace tidemark::shell
