#pragma once
// The parts the programs plug into the shell: the mode drivers, each registered under
// its menu name (a mode without one answers that it is not available), with the
// handlers of the graph view, the simulator and the data spreadsheet. The headless
// program and the command fuzz target run the same set.
#include "feedback/modes/srquant_mode.h"
#include "formula/modes/spreadsheet_commands.h"
#include "pulse/modes/cluster8_mode.h"
#include "pulse/modes/decon_mode.h"
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
  parts.simulator = pulse::make_simulate_commands;
  parts.spreadsheet = formula::make_spreadsheet_commands;
  shell::register_mode(parts.modules, "ApEn", [](int) { return stats::make_apen_mode(); });
  shell::register_mode(parts.modules, "AutoDecon", pulse::make_decon_mode);
  shell::register_mode(parts.modules, "Deconv", pulse::make_decon_mode);
  shell::register_mode(parts.modules, "Cluster8", [](int) { return pulse::make_cluster8_mode(); });
  shell::register_mode(parts.modules, "Concordance",
                       [](int) { return stats::make_concordance_mode(); });
  shell::register_mode(parts.modules, "Correlation",
                       [](int) { return stats::make_correlation_mode(); });
  shell::register_mode(parts.modules, "Cosine", [](int) { return stats::make_cosine_mode(); });
  shell::register_mode(parts.modules, "Gold_Method", [](int) { return pulse::make_gold_mode(); });
  shell::register_mode(parts.modules, "Periodic", [](int) { return stats::make_periodic_mode(); });
  shell::register_mode(parts.modules, "SRQuant",
                       [](int) { return feedback::make_srquant_mode(); });
  shell::register_mode(parts.modules, "X_ApEn", [](int) { return stats::make_xapen_mode(); });
  return parts;
}

}  // namespace tidemark::app
