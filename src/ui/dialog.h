#pragma once
// A dialog described as data: a title and typed fields, each with its label, kind,
// default and the grid it sits in. Modes describe their dialogs this way; the user
// interface draws them, the settings files and the SET command read and write them.
//
//   Dialog d{"CLUSTER ANALYSIS", {{"T-Score for Increase", FieldKind::kReal, "2.0",
//                                  "CLUSTER Parameters"}}};
//   auto v = parse_field_value(d.fields[0], "2.5");   // FieldValue{2.5}
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tidemark::ui {

enum class FieldKind {
  kReal,     // a real number, shown in the listing format 1PG15.5
  kInteger,  // a 32-bit integer
  kCheck,    // a check box: ON or OFF
  kText,     // free text
  kMenu,     // one of `choices`, held as its 0-based index
};

struct Field {
  std::string label;  // as the dialog shows it; SET names the field by it
  FieldKind kind = FieldKind::kReal;
  std::string default_value;         // in the text form parse_field_value reads
  std::string grid;                  // the group of fields the field is shown in
  std::vector<std::string> choices;  // kMenu only
  // A result the mode writes into the dialog (a fit's variance, a probability table):
  // shown, never set by the user, not kept in the settings file.
  bool read_only = false;
};

// A button of a mode's dialog and the command it issues ("Calculate", "CLUSTER_CALCULATE").
struct Button {
  std::string label;
  std::string command;
};

struct Dialog {
  std::string title;
  std::vector<Field> fields;
  std::vector<Button> buttons = {};  // the module frame adds its standard buttons

  // Index of the field whose label equals `label` (letter case and surrounding blanks
  // ignored); no value when there is none.
  std::optional<std::size_t> find(std::string_view label) const;
};

// double for kReal, int for kInteger and kMenu (the choice index), bool for kCheck,
// std::string for kText.
using FieldValue = std::variant<double, int, bool, std::string>;

// Reads `text` as a value of `field`'s kind: a finite real; a whole number in the
// 32-bit range; ON/OFF, YES/NO, TRUE/FALSE or 1/0 for a check box; a choice named by
// its text (letter case ignored) for a menu; any text for a text field. No value when
// the text does not read.
std::optional<FieldValue> parse_field_value(const Field& field, std::string_view text);

// The text form of a value, which parse_field_value reads back to the same value:
// reals as the shortest decimal that reads back to the same double ("1234.56789",
// "0.2", "1e-05"), check boxes as ON/OFF, menus as the choice's text. SET lines of the
// command history use it, so a replay sets the very same values.
std::string format_field_value(const Field& field, const FieldValue& value);

// The dialog as text, for a terminal: the title, then per group of fields one line per
// field with its label, value and kind ("  R = 0.2   (a real number)"), the read-only
// result fields, and the buttons with the commands they issue. A field is set with
// "SET label = value".
std::string dialog_text(const Dialog& dialog, const std::vector<FieldValue>& values);

// The defaults of every field of `dialog`, in field order.
std::vector<FieldValue> default_values(const Dialog& dialog);

}  // namespace tidemark::ui
