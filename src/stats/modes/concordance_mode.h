#pragma once
// The Concordance mode's driver: dialog "Monte-Carlo Concordance" ("A Series",
// "B Series", "Coincidence From" and "Coincidence To" around "< Coincidence X Range <",
// "#MC Cycles"), settings file do_concord.ini, commands CONCORD_CALCULATE,
// CONCORD_PRINT and CONCORD_VIEW. A calculation reads each set's secretion events,
// counts the data's coincidences, runs the Monte-Carlo cycles from one draw of the
// session's generator, and hands the frame the listing, the probability grid's rows for
// the log, and the graph.
#include <memory>

#include "shell/module.h"

namespace tidemark::stats {

std::unique_ptr<shell::Module> make_concordance_mode();

}  // namespace tidemark::stats
