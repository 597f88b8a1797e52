#pragma once
// A table of named commands and the dispatch through it.
#include <span>
#include <string_view>

#include "shell/session.h"

namespace tidemark::shell {

struct NamedCommand {
  std::string_view name;
  void (*run)(std::string_view command, Session& session);
};

// Runs the first entry whose name the command begins with (letter case ignored) and
// answers true; false when no entry matches. Where one name begins another, the table
// must hold the longer one first.
bool dispatch(std::span<const NamedCommand> table, std::string_view command, Session& session);

}  // namespace tidemark::shell
