#include "shell/data_commands.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "core/text.h"
#include "data/csv_writer.h"
#include "data/native_reader.h"
#include "data/native_writer.h"
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

constexpr std::string_view kNativeFilter = "Native Files (*.dat)|*.dat|All Files (*.*)|*.*|";

void read_native(std::string_view command, Session& session) {
  const ui::FileRequest request{
      "Select a name for the native mode input file", std::string(kNativeFilter), {}, false};
  const auto file = session.file_argument(command, "READ_NATIVE", request);
  if (!file) return;
  data::NativeReadOptions options;
  options.root_path = session.folders().home.string();
  if (!data::read_native(session.store(), *file, session.ui(), session.files(), options)) {
    session.files().log("READ FAILED " + *file);
    return session.note_failure();
  }
  session.carried_out(command_with_file("READ_NATIVE", *file), {});
}

// WRITE_NATIVE and WRITE_CSV: the current data set to the file the command names, or
// that the user chooses (offered: the data set's name with "_" before its extension).
void write_current(std::string_view command, std::string_view name, Session& session,
                   const std::string& title, std::string_view filter, std::string_view extension,
                   bool (*write)(const data::DataSet&, const std::string&, ui::Ui&, ui::LogSink&)) {
  if (session.store().empty()) return session.ignore(command);
  const data::DataSet& set = session.store().current();
  const std::string offered =
      std::filesystem::path(set.file_name).stem().string() + "_" + std::string(extension);
  const auto file =
      session.file_argument(command, name, {title, std::string(filter), offered, true});
  if (!file) return;
  if (!write(set, *file, session.ui(), session.files())) return session.note_failure();
  session.carried_out(command_with_file(name, *file), {});
}

void write_native(std::string_view command, Session& session) {
  write_current(command, "WRITE_NATIVE", session, "Select a name for the native mode output file",
                kNativeFilter, ".dat", data::write_native);
}

void write_csv(std::string_view command, Session& session) {
  write_current(command, "WRITE_CSV", session, "Select a name for the csv output file",
                "CSV Files (*.csv)|*.csv|All Files (*.*)|*.*|", ".csv", data::write_csv);
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

constexpr std::array<NamedCommand, 5> kCommands{{
    {"READ_NATIVE", read_native},
    {"WRITE_NATIVE", write_native},
    {"WRITE_CSV", write_csv},
    {"RESET", reset},
    {"SELECT", select},
}};

}  // namespace

bool handle_data_command(std::string_view command, Session& session) {
  return dispatch(kCommands, command, session);
}

}  // namespace tidemark::shell
