#pragma once
// The Cluster8 mode: dialog "CLUSTER ANALYSIS", settings file do_cluster.ini, commands
// CLUSTER_CALCULATE, CLUSTER_PRINT and CLUSTER_VIEW. A calculation runs the detector on
// the current data set as read (within its crop range; points with a missing time or
// concentration are left out) and hands the frame the listing, the answers block, the
// log lines, the graph and the peaks as the data set's secretion events. A failed run
// hands back its listing alone; the previous graph and events stay.
#include <memory>
#include <vector>

#include "pulse/cluster8.h"
#include "shell/module.h"

namespace tidemark::pulse {

// The detector's input: the points first_point..last_point of `set` with a time and a
// concentration; a missing SD counts as 0, a missing replicate count as 1.
std::vector<Cluster8Sample> cluster8_samples(const data::DataSet& set);

std::unique_ptr<shell::Module> make_cluster8_mode();

}  // namespace tidemark::pulse
