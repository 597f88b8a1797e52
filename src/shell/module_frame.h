#pragma once
// The module frame: the one pattern every mode driver follows. On entry it names the
// mode's listing (LIST_<id>.lst) and fix file (FIX_<id>.fix) in temp/, records them in
// the kill list, loads the mode's settings file from system/ (the defaults when it is
// missing or does not read) and shows the dialog. Then it takes command after command
// and offers each to the shared command handler, then to the mode's own commands:
//
//   SET label = value        one dialog field (an unknown label or a bad value changes
//                            nothing and is reported naming the field)
//   SAVE_PARAMETERS          the dialog's values to the settings file
//   <prefix>_CALCULATE       the computation; its errors are titled
//                            "Error Reported by " + mode name
//   <prefix>_PRINT, _VIEW    the listing printed through lp, or shown
//   STORE_RESULTS            "Current Results Stored"
//   RECALL_RESULTS           "Current Results Recalled"
//   TEMP_CLOSE               closes the dialog
//   DIALOG                   shows the dialog as text: every field with its label,
//                            value and kind, the result fields, the buttons and the
//                            commands they issue (a terminal user sees it on entry too)
//   COPY_LST "file", SAVE_AS_LST   a copy of the listing
//   any other command the mode's driver knows
//
// When a command of the mode writes dialog fields back (starting values, result fields),
// the dialog is shown again with them. A command nobody consumes is answered "COMMAND
// IGNORED!". The frame returns when the mode changes, the data set store is emptied, or
// the program is to end.
#include "shell/session.h"

namespace tidemark::shell {

// Runs mode `index` (1..14) through the frame with the mode's driver, or, for a mode not
// built yet, with a stand-in whose computation says "The <name> mode is not available
// in this version."
void run_module_frame(Session& session, int index);

}  // namespace tidemark::shell
