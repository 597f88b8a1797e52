#pragma once
// Connects a parallel calculation's progress callback to what the ui shows.
#include <functional>

#include "ui/ui.h"

namespace tidemark::ui {

// A core::ParallelOptions::progress that passes the fraction done (done / count) to
// `progress` and answers what it answers; with no `progress`, nothing is shown and
// nothing cancels. `progress` must outlive the calculation.
std::function<bool(long done, long count)> report_to(Progress* progress);

}  // namespace tidemark::ui
