#include "shell/data_commands.h"

#include <array>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "core/text.h"
#include "data/csv_writer.h"
#include "data/native_reader.h"
#include "data/native_writer.h"
#include "data/summary_book.h"
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

constexpr std::string_view kCsvFilter = "CSV Files (*.csv)|*.csv|All Files (*.*)|*.*|";

// Writes a file that the command names, or that the user chooses (`request` offers a
// name), with `write`; refused while the store is empty. True when the file was written.
bool write_file(std::string_view command, std::string_view name, Session& session,
                const ui::FileRequest& request,
                const std::function<bool(const std::string& file)>& write) {
  if (session.store().empty()) {
    session.ignore(command);
    return false;
  }
  const auto file = session.file_argument(command, name, request);
  if (!file) return false;
  if (!write(*file)) {
    session.note_failure();
    return false;
  }
  session.carried_out(command_with_file(name, *file), {});
  return true;
}

// WRITE_NATIVE and WRITE_CSV: the current data set, offered under its own name with "_"
// before the extension.
bool write_current(std::string_view command, std::string_view name, Session& session,
                   const std::string& title, std::string_view filter, std::string_view extension,
                   bool (*write)(const data::DataSet&, const std::string&, ui::Ui&, ui::LogSink&)) {
  const std::string offered =
      session.store().empty()
          ? std::string()
          : std::filesystem::path(session.store().current().file_name).stem().string() + "_" +
                std::string(extension);
  return write_file(command, name, session, {title, std::string(filter), offered, true},
                    [&](const std::string& file) {
                      return write(session.store().current(), file, session.ui(), session.files());
                    });
}

// A native file keeps the whole record, so the set is no longer modified once written;
// a CSV file keeps only the points and leaves the mark.
void write_native(std::string_view command, Session& session) {
  if (write_current(command, "WRITE_NATIVE", session,
                    "Select a name for the native mode output file", kNativeFilter, ".dat",
                    data::write_native)) {
    session.store().current().modified = false;
  }
}

void write_csv(std::string_view command, Session& session) {
  write_current(command, "WRITE_CSV", session, "Select a name for the csv output file", kCsvFilter,
                ".csv", data::write_csv);
}

// WRITE_SUMMARY_BOOKS: the results kept on every data set, as one table.
void write_summary_books(std::string_view command, Session& session) {
  write_file(
      command, "WRITE_SUMMARY_BOOKS", session,
      {"Select a name for the summary books", std::string(kCsvFilter), "summary_books.csv", true},
      [&](const std::string& file) {
        return data::write_summary_book(session.store(), file, session.ui(), session.files());
      });
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

constexpr std::array<NamedCommand<Session>, 6> kCommands{{
    {"READ_NATIVE", read_native},
    {"WRITE_NATIVE", write_native},
    {"WRITE_CSV", write_csv},
    {"WRITE_SUMMARY_BOOKS", write_summary_books},
    {"RESET", reset},
    {"SELECT", select},
}};

}  // namespace

bool handle_data_command(std::string_view command, Session& session) {
  return dispatch(kCommands, command, session);
}

}  // namespace tidemark::shell
