#include "sheet_view.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tidemark::gui {

SheetView::SheetView(Issue issue, QWidget* parent) : QWidget(parent), issue_(std::move(issue)) {
  auto* layout = new QVBoxLayout(this);
  title_ = new QLabel(tr("Data Spread Sheet"));
  layout->addWidget(title_);
  auto* formula_row = new QHBoxLayout;
  formula_row->addWidget(new QLabel(tr("Function")));
  formula_ = new QLineEdit;
  formula_->setPlaceholderText("Y = 2*Y");
  formula_row->addWidget(formula_, 1);
  auto* evaluate = new QPushButton(tr("Evaluate"));
  evaluate->setObjectName("Evaluate");
  formula_row->addWidget(evaluate);
  const auto evaluate_formula = [this] {
    const std::string text = formula_->text().trimmed().toStdString();
    if (!text.empty()) run("SPREADSHEET_FUNCTION= " + text, true);
  };
  connect(evaluate, &QPushButton::clicked, this, evaluate_formula);
  connect(formula_, &QLineEdit::returnPressed, this, evaluate_formula);
  layout->addLayout(formula_row);

  table_ = new QTableWidget;
  table_->verticalHeader()->setVisible(false);
  connect(table_, &QTableWidget::cellChanged, this, &SheetView::cell_edited);
  layout->addWidget(table_, 1);

  auto* controls = new QGridLayout;
  spins_ = {{"Bin Size", 2, nullptr},
            {"One every", 2, nullptr},
            {"points starting at", 1, nullptr},
            {"%", 10, nullptr}};
  for (Spin& s : spins_) {
    s.box = new QSpinBox;
    s.box->setRange(1, 100000);
    s.box->setValue(s.shown);
    s.box->setObjectName(s.label);
  }
  const auto button = [this](const char* text, std::string command, bool refresh) {
    auto* b = new QPushButton(text);
    b->setObjectName(text);
    connect(b, &QPushButton::clicked, this, [this, command, refresh] { run(command, refresh); });
    return b;
  };
  controls->addWidget(new QLabel(spins_[0].label), 0, 0);
  controls->addWidget(spins_[0].box, 0, 1);
  controls->addWidget(button("Average", "SPREADSHEET_AVERAGE", true), 0, 2);
  controls->addWidget(new QLabel(spins_[1].label), 0, 3);
  controls->addWidget(spins_[1].box, 0, 4);
  controls->addWidget(new QLabel(spins_[2].label), 0, 5);
  controls->addWidget(spins_[2].box, 0, 6);
  controls->addWidget(button("Select", "SPREADSHEET_SELECT", true), 0, 7);
  controls->addWidget(new QLabel(spins_[3].label), 1, 0);
  controls->addWidget(spins_[3].box, 1, 1);
  controls->addWidget(button("Corrupt", "SPREADSHEET_CORRUPT", true), 1, 2);
  controls->addWidget(button("Crop", "SPREADSHEET_CROP", true), 1, 3);
  controls->addWidget(button("Shuffle", "SPREADSHEET_SHUFFLE", true), 1, 4);
  controls->addWidget(button("Accept Changes", "SPREADSHEET_UPDATE", true), 1, 5);
  controls->addWidget(button("Finish", "SPREADSHEET_FINISH", false), 1, 6);
  layout->addLayout(controls);
}

QSpinBox* SheetView::spin(const std::string& label) const {
  for (const Spin& s : spins_) {
    if (label == s.label) return s.box;
  }
  return nullptr;
}

void SheetView::show_table(const SheetTable& table) {
  filling_ = true;
  title_->setText(QString::fromStdString(table.title));
  labels_ = table.labels;
  table_->clear();
  table_->setColumnCount(static_cast<int>(table.labels.size()));
  table_->setRowCount(static_cast<int>(table.rows.size()));
  QStringList headers;
  for (const auto& label : table.labels) headers << QString::fromStdString(label);
  table_->setHorizontalHeaderLabels(headers);
  for (int r = 0; r < table_->rowCount(); ++r) {
    for (int c = 0; c < table_->columnCount(); ++c) {
      auto* item = new QTableWidgetItem(QString::fromStdString(table.rows[r][c]));
      item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      if (c == 0) item->setFlags(item->flags() & ~Qt::ItemIsEditable);  // N
      table_->setItem(r, c, item);
    }
  }
  table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  filling_ = false;
}

// A changed spin box is set before the command that uses it.
void SheetView::run(const std::string& command, bool refresh) {
  for (Spin& s : spins_) {
    if (s.box->value() == s.shown) continue;
    s.shown = s.box->value();
    issue_(std::string("SET ") + s.label + " = " + std::to_string(s.shown));
  }
  issue_(command);
  if (refresh) issue_("SPREADSHEET");
}

void SheetView::cell_edited(int row, int column) {
  if (filling_ || column <= 0 || column >= static_cast<int>(labels_.size())) return;
  const std::string text = table_->item(row, column)->text().trimmed().toStdString();
  const std::string r = std::to_string(row + 1);
  run("SPREADSHEET_FUNCTION= " + labels_[column] + "(" + r + ":" + r + ") = " + text, true);
}

}  // namespace tidemark::gui
