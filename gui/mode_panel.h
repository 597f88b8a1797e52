#pragma once
// The mode's dialog, made from its description, with the module frame's buttons:
// "Calculate", "Print Results", "View Results", "Store Results", "Recall Results",
// "Save Parameters as Default" and "OK". A button first issues a SET line for every
// field the user changed, then its command (CLUSTER_CALCULATE, STORE_RESULTS, ...).
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ui/dialog.h"

class QLabel;
class QScrollArea;

namespace tidemark::gui {

class FieldEditors;

class ModePanel : public QWidget {
  Q_OBJECT

 public:
  using Issue = std::function<void(const std::string&)>;
  ModePanel(Issue issue, QWidget* parent = nullptr);

  // The prefix of the buttons' commands ("CLUSTER"), from the mode chosen.
  void set_prefix(std::string prefix) { prefix_ = std::move(prefix); }

  // Shows `dialog` with `values`; the editors are made again only for another dialog.
  void show_dialog(const ui::Dialog& dialog, const std::vector<ui::FieldValue>& values);
  void clear();
  bool empty() const { return editors_ == nullptr; }

  FieldEditors* editors() const { return editors_; }

  // The frame's buttons and the command each issues after the prefix (or alone).
  struct Button {
    const char* text;
    const char* command;
    bool prefixed;
  };
  static const std::vector<Button>& buttons();

 private:
  void press(const Button& button);

  Issue issue_;
  std::string prefix_;
  QLabel* title_ = nullptr;
  QScrollArea* scroll_ = nullptr;
  FieldEditors* editors_ = nullptr;
  QWidget* button_row_ = nullptr;
};

}  // namespace tidemark::gui
