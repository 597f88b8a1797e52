#include "queue_dialog.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "file_filter.h"
#include "shell/queue_commands.h"

namespace tidemark::gui {

namespace {

QString q(std::string_view s) {
  return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
}

QString qt_filter(std::string_view filter) {
  QStringList filters;
  for (const auto& f : name_filters(filter)) filters << QString::fromStdString(f);
  return filters.join(";;");
}

}  // namespace

std::string queue_command(const std::string& template_file, const std::string& parameter_file,
                          const std::string& folder) {
  std::string command = "QUEUE_JOBS \"" + template_file + "\" \"" + parameter_file + "\"";
  if (!folder.empty()) command += " \"" + folder + "\"";
  return command;
}

QueueDialog::QueueDialog(Issue issue, QWidget* parent)
    : QDialog(parent), issue_(std::move(issue)) {
  setWindowTitle(q(shell::kQueueDialogTitle));
  setObjectName("queue dialog");
  setModal(false);
  auto* layout = new QVBoxLayout(this);
  auto* form = new QFormLayout;
  // A field with the button that fills it from a chooser.
  const auto add = [&](const char* name, std::function<QString()> choose) {
    auto* line = new QLineEdit;
    line->setObjectName(name);
    line->setMinimumWidth(360);
    auto* browse = new QPushButton(tr("Browse..."));
    connect(browse, &QPushButton::clicked, this, [line, choose] {
      const QString chosen = choose();
      if (!chosen.isEmpty()) line->setText(chosen);
    });
    auto* row = new QHBoxLayout;
    row->addWidget(line, 1);
    row->addWidget(browse);
    form->addRow(tr(name), row);
  };
  add("Template", [this] {
    return QFileDialog::getOpenFileName(this, tr("Select the Template File"), {},
                                        qt_filter(shell::kTemplateFilter), nullptr,
                                        QFileDialog::DontUseNativeDialog);
  });
  add("Parameter File", [this] {
    return QFileDialog::getOpenFileName(this, tr("Select the Parameter File"), {},
                                        qt_filter(shell::kParameterFilter), nullptr,
                                        QFileDialog::DontUseNativeDialog);
  });
  add("Queue Folder", [this] {
    return QFileDialog::getExistingDirectory(
        this, tr("Select the Queue Folder"), {},
        QFileDialog::ShowDirsOnly | QFileDialog::DontUseNativeDialog);
  });
  layout->addLayout(form);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  buttons->addButton(tr("Queue"), QDialogButtonBox::AcceptRole)->setObjectName("Queue");
  connect(buttons, &QDialogButtonBox::accepted, this, &QueueDialog::queue);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
}

QLineEdit* QueueDialog::field(const char* name) const {
  return findChild<QLineEdit*>(name);
}

void QueueDialog::queue() {
  const auto text = [this](const char* name) { return field(name)->text().trimmed().toStdString(); };
  if (text("Template").empty() || text("Parameter File").empty()) {
    QMessageBox::information(this, windowTitle(), tr("Name the template and the parameter file."));
    return;
  }
  issue_(queue_command(text("Template"), text("Parameter File"), text("Queue Folder")));
  accept();
}

}  // namespace tidemark::gui
