#pragma once
// The shared commands on data sets: READ_NATIVE, WRITE_NATIVE, WRITE_CSV,
// WRITE_SUMMARY_BOOKS, RESET and SELECT.
#include <string_view>

#include "shell/session.h"

namespace tidemark::shell {

// Carries out `command` when it is one of the data set commands; false when not.
bool handle_data_command(std::string_view command, Session& session);

}  // namespace tidemark::shell
