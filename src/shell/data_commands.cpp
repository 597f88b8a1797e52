#include "shell/data_commands.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "core/text.h"
#include "shell/command_table.h"
#include "shell/command_text.h"

namespace tidemark::shell {

namespace {

// The data set that `name` names: the first whose handle is `name`, else the first whose
// file name (whole, or its last component) is `name`. Trailing blanks never matter.
std::optional<int> find_data_set(const data::Store& store, std::string_view name) {
  for (int i = 0; i < store.count(); ++i) {
    if (core::padded_equal(store.at(i).handle, name)) return i;
  }
  for (int i = 0; i < store.count(); ++i) {
    const std::string& file = store.at(i).file_name;
    if (core::padded_equal(file, name) ||
        core::padded_equal(std::filesystem::path(file).filename().string(), name)) {
      return i;
    }
  }
  return std::nullopt;
}

void select(std::string_view command, Session& session) {
  const std::string name = command_argument(command, "SELECT");
  const auto index = find_data_set(session.store(), name);
  if (core::is_blank(name) || !index) return session.ignore(command);
  session.store().select(*index);
  session.carried_out(command_with_file("SELECT", name),
                      "SELECTED FILE -" + session.store().current().file_name);
}

void reset(std::string_view, Session& session) {
  session.store().reset();
  session.carried_out("RESET", "RESET THE PROGRAM");
}

constexpr std::array<NamedCommand, 2> kCommands{{
    {"RESET", reset},
    {"SELECT", select},
}};

}  // namespace

bool handle_data_command(std::string_view command, Session& session) {
  return dispatch(kCommands, command, session);
}

}  // namespace tidemark::shell
