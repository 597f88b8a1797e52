#include "shell/command_table.h"

#include "shell/command_text.h"

namespace tidemark::shell {

bool dispatch(std::span<const NamedCommand> table, std::string_view command, Session& session) {
  for (const NamedCommand& c : table) {
    if (command_is(command, c.name)) {
      c.run(command, session);
      return true;
    }
  }
  return false;
}

}  // namespace tidemark::shell
