#pragma once
// The one way commands are dispatched, in the shell and in the modes alike: a table of
// command names and their handlers, tried in order.
//
//   constexpr std::array<NamedCommand<Session>, 2> kCommands{{
//       {"CD", change_folder},   // void change_folder(std::string_view, Session&)
//       {"EXIT", exit_program},
//   }};
//   if (dispatch(kCommands, command, session)) return true;
//
// A handler receives the whole command and the targets passed to dispatch (the session,
// or a mode and its context); a captureless lambda serves as a handler.
#include <array>
#include <cstddef>
#include <string_view>
#include <type_traits>

#include "shell/command_text.h"

namespace tidemark::shell {

template <typename... Targets>
struct NamedCommand {
  std::string_view name;
  void (*run)(std::string_view command, Targets&... targets);
};

// Runs the first entry whose name the command begins with (letter case ignored) and
// answers true; false when no entry matches. Where one name begins another, the table
// must hold the longer one first.
template <std::size_t N, typename... Targets>
bool dispatch(const std::array<NamedCommand<Targets...>, N>& table, std::string_view command,
              std::type_identity_t<Targets>&... targets) {
  for (const auto& entry : table) {
    if (command_is(command, entry.name)) {
      entry.run(command, targets...);
      return true;
    }
  }
  return false;
}

}  // namespace tidemark::shell
