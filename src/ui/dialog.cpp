#include "ui/dialog.h"

#include <cassert>
#include <charconv>

#include "core/fortran_read.h"
#include "core/text.h"

namespace tidemark::ui {

namespace {

bool equal_nocase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && core::starts_with_nocase(a, b);
}

std::optional<bool> parse_check(std::string_view text) {
  for (std::string_view on : {"ON", "YES", "TRUE", "1", "CHECKED"}) {
    if (equal_nocase(text, on)) return true;
  }
  for (std::string_view off : {"OFF", "NO", "FALSE", "0", ".NOT.CHECKED"}) {
    if (equal_nocase(text, off)) return false;
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::size_t> Dialog::find(std::string_view label) const {
  const std::string_view wanted = core::trim(label);
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (equal_nocase(core::trim(fields[i].label), wanted)) return i;
  }
  return std::nullopt;
}

std::optional<FieldValue> parse_field_value(const Field& field, std::string_view text) {
  const std::string_view t = core::trim(text);
  switch (field.kind) {
    case FieldKind::kReal: {
      double v = 0;
      if (core::read_real(t, v)) return v;
      return std::nullopt;
    }
    case FieldKind::kInteger: {
      int v = 0;
      if (core::read_integer(t, v)) return v;
      return std::nullopt;
    }
    case FieldKind::kCheck: {
      if (auto v = parse_check(t)) return *v;
      return std::nullopt;
    }
    case FieldKind::kText:
      return std::string(t);
    case FieldKind::kMenu:
      for (std::size_t i = 0; i < field.choices.size(); ++i) {
        if (equal_nocase(core::trim(field.choices[i]), t)) return static_cast<int>(i);
      }
      return std::nullopt;
  }
  return std::nullopt;
}

std::string format_field_value(const Field& field, const FieldValue& value) {
  switch (field.kind) {
    case FieldKind::kReal: {
      char digits[32];
      const auto end = std::to_chars(digits, digits + sizeof digits, std::get<double>(value)).ptr;
      return std::string(digits, end);
    }
    case FieldKind::kInteger:
      return std::to_string(std::get<int>(value));
    case FieldKind::kCheck:
      return std::get<bool>(value) ? "ON" : "OFF";
    case FieldKind::kText:
      return std::get<std::string>(value);
    case FieldKind::kMenu:
      return field.choices.at(static_cast<std::size_t>(std::get<int>(value)));
  }
  return {};
}

namespace {

std::string kind_text(const Field& field) {
  switch (field.kind) {
    case FieldKind::kReal:
      return "a real number";
    case FieldKind::kInteger:
      return "a whole number";
    case FieldKind::kCheck:
      return "ON or OFF";
    case FieldKind::kText:
      return "a text";
    case FieldKind::kMenu:
      break;
  }
  std::string text = "one of:";
  for (std::size_t i = 0; i < field.choices.size(); ++i) {
    text += (i == 0 ? " " : ", ") + field.choices[i];
  }
  return text;
}

}  // namespace

std::string dialog_text(const Dialog& dialog, const std::vector<FieldValue>& values) {
  std::string text = dialog.title + "\n";
  for (const bool results : {false, true}) {
    std::optional<std::string> group;  // the group whose heading was written last
    for (std::size_t i = 0; i < dialog.fields.size() && i < values.size(); ++i) {
      const Field& field = dialog.fields[i];
      if (field.read_only != results) continue;
      if (field.grid != group) {
        group = field.grid;
        text += "  [" + (group->empty() ? std::string(results ? "Results" : "Fields") : *group) +
                "]\n";
      }
      text += "    " + field.label + " = " + format_field_value(field, values[i]);
      text += results ? "   (result)\n" : "   (" + kind_text(field) + ")\n";
    }
  }
  if (!dialog.buttons.empty()) {
    text += "  Buttons:\n";
    for (const Button& button : dialog.buttons) {
      text += "    \"" + button.label + "\": " + button.command + "\n";
    }
  }
  text += "  Set a field with: SET label = value\n";
  return text;
}

std::vector<FieldValue> default_values(const Dialog& dialog) {
  std::vector<FieldValue> values;
  values.reserve(dialog.fields.size());
  for (const Field& field : dialog.fields) {
    auto value = parse_field_value(field, field.default_value);
    assert(value && "a dialog's default must read as a value of its field");
    values.push_back(value ? *value : FieldValue{});
  }
  return values;
}

}  // namespace tidemark::ui
