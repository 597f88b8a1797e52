#pragma once
// The Cluster8 mode: dialog "CLUSTER ANALYSIS", settings file do_cluster.ini, commands
// CLUSTER_CALCULATE, CLUSTER_PRINT and CLUSTER_VIEW. A calculation runs the detector on
// the current data set as read (within its crop range; points with a missing time or
// concentration are left out), writes the listing, the answers block, the log line and
// the graph, and leaves the peaks as the data set's secretion events. A failed run
// writes its listing and keeps the previous results.
#include <memory>
#include <optional>

#include "pulse/cluster8.h"
#include "shell/module.h"

namespace tidemark::pulse {

// The dialog's fields, in order.
const ui::Dialog& cluster8_dialog();

// The detector's settings from the dialog's values (in field order).
Cluster8Settings cluster8_settings(const std::vector<ui::FieldValue>& values);

// The detector's input: the points first_point..last_point of `set` with a time and a
// concentration; a missing SD counts as 0, a missing replicate count as 1.
std::vector<Cluster8Sample> cluster8_samples(const data::DataSet& set);

std::unique_ptr<shell::Module> make_cluster8_module();

}  // namespace tidemark::pulse
