#pragma once
// A mode's settings file in system/ ("do_cluster.ini"): one line per dialog field,
// "label = value", in field order; reals in the listing format 1PG15.5. The same
// "label = value" form sets one field with the SET command.
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/dialog.h"

namespace tidemark::shell {

struct Assignment {
  std::string label;
  std::string value;
};

// Splits "label = value" at its first "=", without the blanks around either side; no
// value when there is no "=" or the label is blank.
std::optional<Assignment> split_assignment(std::string_view text);

// The same for a field of `dialog`, whose label may hold an "=" ("CONC(T=0) = 1.5"): at
// the first "=" whose left side names a field of `dialog`, else at the first "=".
std::optional<Assignment> split_assignment(std::string_view text, const ui::Dialog& dialog);

// Sets the field named by `assignment` in `values` (one per field of `dialog`). Empty
// on success; otherwise the message naming the field, and `values` unchanged. A
// read-only (result) field is refused.
std::string assign_field(const ui::Dialog& dialog, const Assignment& assignment,
                         std::vector<ui::FieldValue>& values);

// What a settings file gave: a value for every field, and one line per part of the file
// that was not used, naming the line and why ("line 3 (Colour = red): The dialog ... has
// no field \"Colour\"").
struct SettingsRead {
  std::vector<ui::FieldValue> values;
  std::vector<std::string> ignored;
};

// The values kept in a settings file; no value when the file is missing or cannot be
// read. Every line that reads sets its field; a line that does not (no "=", an unknown
// label, a bad value, a result field) is ignored and named in `ignored`, and so is a
// field without a line, which keeps its default. Line ends may be LF or CRLF; blank
// lines and comment lines (beginning "!" or ";") are skipped. Read-only fields are not
// kept: they read as their defaults.
std::optional<SettingsRead> read_settings(const std::filesystem::path& path,
                                          const ui::Dialog& dialog);

// The text of a settings file that holds `values`, read-only fields left out.
std::string settings_text(const ui::Dialog& dialog, const std::vector<ui::FieldValue>& values);

}  // namespace tidemark::shell
