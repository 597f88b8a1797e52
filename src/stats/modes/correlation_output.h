#pragma once
// Writes a calculation's listing and graph source to the files the module frame named.
#include <string>

#include "shell/module.h"

namespace tidemark::stats {

// Replaces c.listing with `listing` and c.graph with `graph`; an error with the reason
// when either cannot be written.
shell::Outcome write_listing_and_graph(shell::ModuleContext& c, const std::string& listing,
                                       const std::string& graph);

}  // namespace tidemark::stats
