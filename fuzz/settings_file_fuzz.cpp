// Reads the input as a mode's settings file (do_*.ini) for a dialog with a field of
// every kind and one whose label holds an "=", and checks what the frame relies on: a value of the field's kind for
// every field; every line not used named with its line number within the file; and the
// values read, written back as a settings file, read again to the same values with
// nothing ignored.
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <variant>

#include "shell/settings_file.h"

namespace {

using tidemark::ui::FieldKind;

void check(bool invariant) {
  if (!invariant) std::abort();
}

const tidemark::ui::Dialog& dialog() {
  static const tidemark::ui::Dialog d{
      "FUZZ",
      {{"# Points for Peak", FieldKind::kInteger, "2", "Parameters", {}},
       {"R", FieldKind::kReal, "0.2", "Parameters", {}},
       {"Show Outliers", FieldKind::kCheck, "ON", "Graph", {}},
       {"Title", FieldKind::kText, "LH", "Graph", {}},
       {"Kernel", FieldKind::kMenu, "Least Squares", "Fit", {"Least Squares", "Min-Max"}},
       {"Variance", FieldKind::kText, "", "Results", {}, true},
       {"CONC(T=0)", FieldKind::kReal, "1.0", "Parameters", {}}}};
  return d;
}

std::filesystem::path scratch_file() {
  static const std::filesystem::path path = std::filesystem::temp_directory_path() /
                                            ("settings_fuzz_" + std::to_string(getpid()) + ".ini");
  return path;
}

void write(const std::filesystem::path& path, std::string_view text) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::filesystem::path path = scratch_file();
  write(path, text);
  const auto read = tidemark::shell::read_settings(path, dialog());
  check(read.has_value());
  check(read->values.size() == dialog().fields.size());
  const auto kinds_match = [&](const tidemark::shell::SettingsRead& r) {
    for (std::size_t i = 0; i < r.values.size(); ++i) {
      const FieldKind kind = dialog().fields[i].kind;
      const bool ok = kind == FieldKind::kReal    ? std::holds_alternative<double>(r.values[i])
                      : kind == FieldKind::kCheck ? std::holds_alternative<bool>(r.values[i])
                      : kind == FieldKind::kText  ? std::holds_alternative<std::string>(r.values[i])
                                                  : std::holds_alternative<int>(r.values[i]);
      if (!ok) return false;
    }
    return true;
  };
  check(kinds_match(*read));
  const std::size_t lines =
      static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
  for (const std::string& ignored : read->ignored) {
    if (ignored.rfind("no line for ", 0) == 0) continue;
    check(ignored.rfind("line ", 0) == 0);
    const std::size_t number = std::strtoul(ignored.c_str() + 5, nullptr, 10);
    check(number >= 1 && number <= lines);
  }
  // A settings file written from the values reads back to them, whole. Text fields are
  // kept on one line, so a value with a line break in it cannot come back: skip those.
  const std::string& title = std::get<std::string>(read->values[3]);
  if (title.find_first_of("\r\n") == std::string::npos) {
    write(path, tidemark::shell::settings_text(dialog(), read->values));
    const auto again = tidemark::shell::read_settings(path, dialog());
    check(again.has_value() && again->ignored.empty());
    for (std::size_t i = 0; i < dialog().fields.size(); ++i) {
      const tidemark::ui::Field& field = dialog().fields[i];
      if (field.read_only) continue;
      const bool same =
          field.kind == FieldKind::kReal
              ? std::abs(std::get<double>(again->values[i]) - std::get<double>(read->values[i])) <=
                    1e-4 * std::abs(std::get<double>(read->values[i]))
              : again->values[i] == read->values[i];
      check(same);
    }
  }
  return 0;
}
