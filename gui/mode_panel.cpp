#include "mode_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "field_editors.h"

namespace tidemark::gui {

const std::vector<ModePanel::Button>& ModePanel::buttons() {
  static const std::vector<Button> kButtons{
      {"Calculate", "_CALCULATE", true},
      {"Print Results", "_PRINT", true},
      {"View Results", "_VIEW", true},
      {"Store Results", "STORE_RESULTS", false},
      {"Recall Results", "RECALL_RESULTS", false},
      {"Save Parameters as Default", "SAVE_PARAMETERS", false},
      {"OK", "TEMP_CLOSE", false},
  };
  return kButtons;
}

ModePanel::ModePanel(Issue issue, QWidget* parent) : QWidget(parent), issue_(std::move(issue)) {
  auto* layout = new QVBoxLayout(this);
  title_ = new QLabel;
  QFont bold = title_->font();
  bold.setBold(true);
  title_->setFont(bold);
  layout->addWidget(title_);
  scroll_ = new QScrollArea;
  scroll_->setWidgetResizable(true);
  scroll_->setFrameShape(QFrame::NoFrame);
  layout->addWidget(scroll_, 1);
  button_row_ = new QWidget;
  auto* grid = new QGridLayout(button_row_);
  grid->setContentsMargins(0, 0, 0, 0);
  int i = 0;
  for (const Button& b : buttons()) {
    auto* push = new QPushButton(b.text);
    push->setObjectName(b.text);
    connect(push, &QPushButton::clicked, this, [this, &b] { press(b); });
    grid->addWidget(push, i / 2, i % 2);
    ++i;
  }
  layout->addWidget(button_row_);
  clear();
}

void ModePanel::show_dialog(const ui::Dialog& dialog, const std::vector<ui::FieldValue>& values) {
  if (editors_ == nullptr || editors_->dialog().title != dialog.title ||
      editors_->dialog().fields.size() != dialog.fields.size()) {
    editors_ = new FieldEditors(dialog);
    scroll_->setWidget(editors_);  // deletes the editors shown before
  }
  editors_->show_values(values);
  title_->setText(QString::fromStdString(dialog.title));
  button_row_->setEnabled(true);
}

void ModePanel::clear() {
  editors_ = nullptr;
  scroll_->setWidget(new QLabel(tr("Choose a mode in the Mode menu.")));
  title_->setText({});
  button_row_->setEnabled(false);
}

void ModePanel::press(const Button& button) {
  if (editors_ != nullptr) {
    for (const std::string& line : editors_->take_changes()) issue_(line);
  }
  issue_(button.prefixed ? prefix_ + button.command : std::string(button.command));
}

}  // namespace tidemark::gui
