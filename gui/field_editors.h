#pragma once
// The editors of a dialog's fields, made from its description: a line edit for reals,
// whole numbers and texts, a check box, a drop-down for a menu, a drop-down of the
// loaded data sets for a field that names one by number (the A and B series), a
// read-only line for a result. Fields sit in one group box per grid, in field order. A
// new mode's dialog needs nothing here.
#include <QWidget>
#include <string>
#include <vector>

#include "ui/dialog.h"

namespace tidemark::gui {

// True for a field that names a data set by its number: a whole-number field labelled
// "... Series" ("A Series", "B Series"), as the two-series modes name theirs.
bool names_data_set(const ui::Field& field);

class FieldEditors : public QWidget {
  Q_OBJECT

 public:
  FieldEditors(const ui::Dialog& dialog, QWidget* parent = nullptr);

  const ui::Dialog& dialog() const { return dialog_; }

  // Puts `values` (one per field) into the editors; they are then the values shown.
  void show_values(const std::vector<ui::FieldValue>& values);

  // The data sets the data-set drop-downs offer, in store order (number 1 first), as
  // the user reads them ("1  LH  (lh.dat)"); the numbers chosen stay chosen.
  void set_data_sets(const std::vector<std::string>& names);

  // A "SET label = value" line for each field the user changed since the values were
  // last shown, in field order; the changed values count as shown from now on. A text
  // that does not read as the field's value is passed on as typed, for the shell to
  // refuse with its message.
  std::vector<std::string> take_changes();

  // The editors' values; false, with `problem` naming the field, when one does not read.
  bool read_values(std::vector<ui::FieldValue>& values, std::string& problem) const;

  // The editor of the field labelled `label` (for tests and screenshots); null if none.
  QWidget* editor(const std::string& label) const;

 private:
  std::string text_of(std::size_t field) const;
  bool changed(std::size_t field) const;

  ui::Dialog dialog_;
  std::vector<QWidget*> editors_;
  std::vector<std::string> shown_;  // each field's value as last shown, in text form
};

}  // namespace tidemark::gui
