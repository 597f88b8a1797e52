#include "field_editors.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <map>

#include "core/text.h"

namespace tidemark::gui {

namespace {

constexpr char kDataSetProperty[] = "names a data set";

// A drop-down of data sets: the item of data set n holds n.
QComboBox* data_set_box(QWidget* editor) {
  auto* box = qobject_cast<QComboBox*>(editor);
  return box != nullptr && box->property(kDataSetProperty).toBool() ? box : nullptr;
}

// Shows data set `number` in `box`, adding an item for a number beyond those loaded
// (a value set before its data set was read) so that the value shown stays the one held.
void select_data_set(QComboBox* box, int number) {
  int at = box->findData(number);
  if (at < 0) {
    box->addItem(QString("%1  (not loaded)").arg(number), number);
    at = box->count() - 1;
  }
  box->setCurrentIndex(at);
}

QWidget* make_editor(const ui::Field& field) {
  if (names_data_set(field)) {
    auto* box = new QComboBox;
    box->setProperty(kDataSetProperty, true);
    box->setEnabled(!field.read_only);
    return box;
  }
  switch (field.kind) {
    case ui::FieldKind::kCheck:
      return new QCheckBox;
    case ui::FieldKind::kMenu: {
      auto* box = new QComboBox;
      for (const auto& choice : field.choices) box->addItem(QString::fromStdString(choice));
      box->setEnabled(!field.read_only);
      return box;
    }
    case ui::FieldKind::kReal:
    case ui::FieldKind::kInteger:
    case ui::FieldKind::kText: {
      auto* line = new QLineEdit;
      line->setReadOnly(field.read_only);
      if (field.read_only) line->setStyleSheet("QLineEdit { background: palette(window); }");
      return line;
    }
  }
  return new QLineEdit;
}

}  // namespace

bool names_data_set(const ui::Field& field) {
  return field.kind == ui::FieldKind::kInteger && field.label.ends_with(" Series");
}

FieldEditors::FieldEditors(const ui::Dialog& dialog, QWidget* parent)
    : QWidget(parent), dialog_(dialog) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  std::map<std::string, QFormLayout*> grids;
  for (const ui::Field& field : dialog_.fields) {
    QFormLayout*& form = grids[field.grid];
    if (form == nullptr) {
      auto* group = new QGroupBox(QString::fromStdString(field.grid));
      form = new QFormLayout(group);
      form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
      layout->addWidget(group);
    }
    QWidget* editor = make_editor(field);
    editor->setObjectName(QString::fromStdString(field.label));
    editor->setToolTip(QString::fromStdString("SET " + field.label + " = ..."));
    form->addRow(QString::fromStdString(field.label), editor);
    editors_.push_back(editor);
  }
  layout->addStretch(1);
  show_values(ui::default_values(dialog_));
}

void FieldEditors::show_values(const std::vector<ui::FieldValue>& values) {
  shown_.clear();
  for (std::size_t i = 0; i < dialog_.fields.size() && i < values.size(); ++i) {
    const ui::Field& field = dialog_.fields[i];
    const std::string text = ui::format_field_value(field, values[i]);
    shown_.push_back(text);
    if (QComboBox* sets = data_set_box(editors_[i])) {
      select_data_set(sets, std::get<int>(values[i]));
    } else if (auto* check = qobject_cast<QCheckBox*>(editors_[i])) {
      check->setChecked(std::get<bool>(values[i]));
    } else if (auto* box = qobject_cast<QComboBox*>(editors_[i])) {
      box->setCurrentIndex(std::get<int>(values[i]));
    } else if (auto* line = qobject_cast<QLineEdit*>(editors_[i])) {
      line->setText(QString::fromStdString(text));
      line->setCursorPosition(0);
    }
  }
}

void FieldEditors::set_data_sets(const std::vector<std::string>& names) {
  for (QWidget* editor : editors_) {
    QComboBox* box = data_set_box(editor);
    if (box == nullptr) continue;
    const QSignalBlocker quiet(box);
    const int number = box->currentData().toInt();
    box->clear();
    for (std::size_t i = 0; i < names.size(); ++i)
      box->addItem(QString::fromStdString(names[i]), static_cast<int>(i) + 1);
    if (number >= 1) select_data_set(box, number);
  }
}

std::string FieldEditors::text_of(std::size_t field) const {
  if (QComboBox* sets = data_set_box(editors_[field])) return std::to_string(sets->currentData().toInt());
  if (auto* check = qobject_cast<QCheckBox*>(editors_[field])) return check->isChecked() ? "ON" : "OFF";
  if (auto* box = qobject_cast<QComboBox*>(editors_[field])) return box->currentText().toStdString();
  if (auto* line = qobject_cast<QLineEdit*>(editors_[field]))
    return std::string(core::trim(line->text().toStdString()));
  return {};
}

// A number typed in another form of the value shown ("2" for "2.0000") is no change.
bool FieldEditors::changed(std::size_t field) const {
  const ui::Field& f = dialog_.fields[field];
  if (f.read_only || field >= shown_.size()) return false;
  const std::string text = text_of(field);
  if (text == shown_[field]) return false;
  const auto now = ui::parse_field_value(f, text);
  const auto before = ui::parse_field_value(f, shown_[field]);
  return !(now && before && *now == *before);
}

std::vector<std::string> FieldEditors::take_changes() {
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < dialog_.fields.size(); ++i) {
    if (!changed(i)) continue;
    const ui::Field& field = dialog_.fields[i];
    const std::string text = text_of(i);
    const auto value = ui::parse_field_value(field, text);
    const std::string shown = value ? ui::format_field_value(field, *value) : text;
    lines.push_back("SET " + field.label + " = " + shown);
    if (value) shown_[i] = shown;
  }
  return lines;
}

bool FieldEditors::read_values(std::vector<ui::FieldValue>& values, std::string& problem) const {
  std::vector<ui::FieldValue> read;
  for (std::size_t i = 0; i < dialog_.fields.size(); ++i) {
    const auto value = ui::parse_field_value(dialog_.fields[i], text_of(i));
    if (!value) {
      problem = "\"" + text_of(i) + "\" is not a valid value for the field \"" +
                dialog_.fields[i].label + "\"";
      return false;
    }
    read.push_back(*value);
  }
  values = std::move(read);
  return true;
}

QWidget* FieldEditors::editor(const std::string& label) const {
  const auto index = dialog_.find(label);
  return index ? editors_[*index] : nullptr;
}

}  // namespace tidemark::gui
