#pragma once
// The simulation commands, offered by the shell after the graph view and before the
// spreadsheet, with or without data loaded:
//
//   SIMULATE key=value ...   a new data set from the secretion-elimination model
//                            (pulse/modes/simulate_arguments.h); it becomes current.
//
// Random numbers come from the session's generator, so a run depends only on SEED.
// A refused command leaves the generator as it was, so the history (which records only
// commands carried out) still replays.
#include <memory>

#include "shell/session.h"

namespace tidemark::pulse {

// Title of the message box of every refused simulation.
inline constexpr std::string_view kSimulationErrorTitle = "Simulation Error";

std::unique_ptr<shell::CommandHandler> make_simulate_commands();

}  // namespace tidemark::pulse
