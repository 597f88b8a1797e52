#pragma once
// The job queue's commands: QUEUE_JOBS (File / Queue Batch Jobs) writes a queue of jobs
// from a template and a parameter file; COLLECT_JOBS merges the results of the jobs
// that have run into one table.
#include <string_view>

#include "shell/session.h"

namespace tidemark::shell {

// The queue dialog's title and the filters of its two file questions, for every user
// interface that asks them.
inline constexpr std::string_view kQueueDialogTitle = "Queue a Series of  Jobs";
inline constexpr std::string_view kTemplateFilter = "Template Files [*.tpl]|*.tpl|All Files [*.*]|*.*|";
inline constexpr std::string_view kParameterFilter =
    "Parameters Files [*.par]|*.tpl|All Files [*.*]|*.*|";

// Carries out `command` when it is one of the queue commands; false when not.
bool handle_queue_command(std::string_view command, Session& session);

}  // namespace tidemark::shell
