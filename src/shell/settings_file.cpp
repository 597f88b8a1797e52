#include "shell/settings_file.h"

#include <sstream>

#include "core/fortran_format.h"
#include "core/text.h"
#include "shell/file_ops.h"

namespace tidemark::shell {

namespace {

std::string_view kind_name(ui::FieldKind kind) {
  switch (kind) {
    case ui::FieldKind::kReal:
      return "a real number";
    case ui::FieldKind::kInteger:
      return "a whole number";
    case ui::FieldKind::kCheck:
      return "ON or OFF";
    case ui::FieldKind::kText:
      return "a text";
    case ui::FieldKind::kMenu:
      break;
  }
  return "one of the field's choices";
}

}  // namespace

std::optional<Assignment> split_assignment(std::string_view text) {
  const auto eq = text.find('=');
  if (eq == std::string_view::npos) return std::nullopt;
  Assignment a{std::string(core::trim(text.substr(0, eq))),
               std::string(core::trim(text.substr(eq + 1)))};
  if (a.label.empty()) return std::nullopt;
  return a;
}

std::optional<Assignment> split_assignment(std::string_view text, const ui::Dialog& dialog) {
  for (auto eq = text.find('='); eq != std::string_view::npos; eq = text.find('=', eq + 1)) {
    const std::string_view label = core::trim(text.substr(0, eq));
    if (!label.empty() && dialog.find(label)) {
      return Assignment{std::string(label), std::string(core::trim(text.substr(eq + 1)))};
    }
  }
  return split_assignment(text);
}

std::string assign_field(const ui::Dialog& dialog, const Assignment& assignment,
                         std::vector<ui::FieldValue>& values) {
  const auto index = dialog.find(assignment.label);
  if (!index)
    return "The dialog \"" + dialog.title + "\" has no field \"" + assignment.label + "\"";
  const ui::Field& field = dialog.fields[*index];
  if (field.read_only) return "The field \"" + field.label + "\" shows a result and cannot be set";
  const auto value = ui::parse_field_value(field, assignment.value);
  if (!value) {
    return "\"" + assignment.value + "\" is not a valid value for the field \"" + field.label +
           "\" (" + std::string(kind_name(field.kind)) + ")";
  }
  values[*index] = *value;
  return {};
}

std::optional<SettingsRead> read_settings(const std::filesystem::path& path,
                                          const ui::Dialog& dialog) {
  std::string text;
  if (!read_file(path, text)) return std::nullopt;
  SettingsRead read{ui::default_values(dialog), {}};
  std::vector<bool> seen(read.values.size(), false);
  std::istringstream lines(text);
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::string_view content = core::trim(line);
    if (content.empty() || content.front() == '!' || content.front() == ';') continue;
    const auto assignment = split_assignment(content, dialog);
    const std::string problem = assignment ? assign_field(dialog, *assignment, read.values)
                                           : "not of the form \"label = value\"";
    if (problem.empty()) {
      seen[*dialog.find(assignment->label)] = true;
    } else {
      read.ignored.push_back("line " + std::to_string(number) + " (" + std::string(content) +
                             "): " + problem);
    }
  }
  for (std::size_t i = 0; i < seen.size(); ++i) {
    if (!seen[i] && !dialog.fields[i].read_only) {
      read.ignored.push_back("no line for \"" + dialog.fields[i].label + "\": its default " +
                             ui::format_field_value(dialog.fields[i], read.values[i]) + " holds");
    }
  }
  return read;
}

std::string settings_text(const ui::Dialog& dialog, const std::vector<ui::FieldValue>& values) {
  std::string text;
  for (std::size_t i = 0; i < dialog.fields.size(); ++i) {
    const ui::Field& field = dialog.fields[i];
    if (field.read_only) continue;
    text += field.label + " = ";
    text += field.kind == ui::FieldKind::kReal ? core::format_g15_5(std::get<double>(values[i]))
                                               : ui::format_field_value(field, values[i]);
    text += '\n';
  }
  return text;
}

}  // namespace tidemark::shell
