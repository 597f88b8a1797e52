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

// Sets the field named by `assignment` in `values` (one per field of `dialog`). Empty
// on success; otherwise the message naming the field, and `values` unchanged. A
// read-only (result) field is refused.
std::string assign_field(const ui::Dialog& dialog, const Assignment& assignment,
                         std::vector<ui::FieldValue>& values);

// The values kept in a settings file. No value when the file is missing, or when any
// field the user sets is missing from it or does not read: then all the defaults hold.
// Read-only fields are not kept: they read as their defaults.
std::optional<std::vector<ui::FieldValue>> read_settings(const std::filesystem::path& path,
                                                         const ui::Dialog& dialog);

// The text of a settings file that holds `values`, read-only fields left out.
std::string settings_text(const ui::Dialog& dialog, const std::vector<ui::FieldValue>& values);

}  // namespace tidemark::shell
