#pragma once
// The File menu's "Queue Batch Jobs" dialog, "Queue a Series of  Jobs": the template
// (*.tpl), the parameter file (*.par) and the queue folder, each typed or chosen with
// its button. "Queue" issues QUEUE_JOBS with them; an empty folder is left out, and the
// program then asks whether to use the shared queue. The dialog is modeless.
#include <QDialog>
#include <functional>
#include <string>

class QLineEdit;

namespace tidemark::gui {

// The command for a template, a parameter file and a folder (may be empty).
std::string queue_command(const std::string& template_file, const std::string& parameter_file,
                          const std::string& folder);

class QueueDialog : public QDialog {
  Q_OBJECT

 public:
  using Issue = std::function<void(const std::string&)>;
  explicit QueueDialog(Issue issue, QWidget* parent = nullptr);

  // The three fields, named "Template", "Parameter File" and "Queue Folder".
  QLineEdit* field(const char* name) const;

 private:
  void queue();

  Issue issue_;
};

}  // namespace tidemark::gui
