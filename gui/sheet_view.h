#pragma once
// The data spreadsheet ("Data Spread Sheet") as a grid of editable cells, with the
// formula field and "Evaluate", the spin boxes of "Average", "Select" and "Corrupt" (with
// their defaults), "Crop", "Shuffle", "Accept Changes" and "Finish". Every action issues
// the spreadsheet's commands: an edited cell is the formula "LABEL(row:row) = value", a
// changed spin box its SET line; after a change the grid is shown again (SPREADSHEET).
#include <QWidget>
#include <functional>
#include <string>

#include "sheet_text.h"

class QLabel;
class QLineEdit;
class QSpinBox;
class QTableWidget;

namespace tidemark::gui {

class SheetView : public QWidget {
  Q_OBJECT

 public:
  using Issue = std::function<void(const std::string&)>;
  SheetView(Issue issue, QWidget* parent = nullptr);

  void show_table(const SheetTable& table);

  QTableWidget* table() const { return table_; }
  QLineEdit* formula() const { return formula_; }
  QSpinBox* spin(const std::string& label) const;

 private:
  struct Spin {
    const char* label;
    int shown;
    QSpinBox* box;
  };
  void run(const std::string& command, bool refresh);
  void cell_edited(int row, int column);

  Issue issue_;
  QLabel* title_ = nullptr;
  QLineEdit* formula_ = nullptr;
  QTableWidget* table_ = nullptr;
  std::vector<Spin> spins_;
  std::vector<std::string> labels_;
  bool filling_ = false;
};

}  // namespace tidemark::gui
