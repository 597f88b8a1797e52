#pragma once
// The parts the programs plug into the shell: the mode drivers registered in menu order
// as they are built (an empty entry is a mode that answers it is not available), with
// the handlers of the graph view, the simulator and the data spreadsheet. The headless
// program and the command fuzz target run the same set.
#include "formula/modes/spreadsheet_commands.h"
#include "pulse/modes/cluster8_module.h"
#include "pulse/modes/gold_mode.h"
#include "pulse/modes/simulate_commands.h"
#include "shell/graph_commands.h"
#include "shell/program.h"
#include "stats/modes/apen_mode.h"
#include "stats/modes/concordance_mode.h"
#include "stats/modes/correlation_mode.h"
#include "stats/modes/cosine_mode.h"
#include "stats/modes/periodic_mode.h"
#include "stats/modes/xapen_mode.h"

namespace tidemark::app {

inline shell::Components registered_components() {
  shell::Components parts;
  parts.graphics = [] { return shell::make_graph_view(); };
  // Menu order: 1 ApEn, 2 AutoDecon, 3 Cluster8, 4 Concordance, 5 Correlation, 6 Cosine,
  // 7 Deconv, 8 Gold_Method, 9 Periodic, 10 Pulse, 11 Pulse2, 12 Pulse4, 13 SRQuant,
  // 14 X_ApEn; parts.modules[index - 1] is the factory of mode `index`.
  parts.modules[1 - 1] = [](int) { return stats::make_apen_module(); };
  parts.modules[3 - 1] = [](int) { return pulse::make_cluster8_module(); };
  parts.modules[4 - 1] = [](int) { return stats::make_concordance_module(); };
  parts.modules[5 - 1] = [](int) { return stats::make_correlation_module(); };
  parts.modules[6 - 1] = stats::make_cosine_module;
  parts.modules[8 - 1] = [](int) { return pulse::make_gold_mode(); };
  parts.modules[9 - 1] = stats::make_periodic_module;
  parts.simulator = pulse::make_simulate_commands;
  parts.spreadsheet = formula::make_spreadsheet_commands;
  parts.modules[14 - 1] = [](int) { return stats::make_xapen_module(); };
  return parts;
}

}  // namespace tidemark::app
