#include "shell/mode_loop.h"

#include "shell/modes.h"
#include "shell/module_frame.h"
#include "shell/shared_handler.h"

namespace tidemark::shell {

namespace {

// Dialog 101, shown while no data set is loaded.
void show_initial_information(Session& session) {
  session.ui().show_hint(
      "Initial Program Information",
      {"The first step to using this program is to read a data set.  Click on FILEand then "
       "READ.",
       "You can also load a graphics source file  with the GRAPHICS and then LOAD menu."});
}

}  // namespace

void run_mode_loop(Session& session) {
  while (!session.exit_requested()) {
    if (session.store().empty()) show_initial_information(session);
    const int mode = session.mode();
    if (!session.store().empty() && mode >= 1) {
      run_module_frame(session, mode);
      if (session.exit_requested()) break;
      if (!mode_info(mode).needs_two_sets || session.store().count() >= 2) continue;
    }
    const auto command = session.next_command();
    if (!command) break;
    if (!handle_shared_command(*command, session)) session.ignore(*command);
  }
}

}  // namespace tidemark::shell
