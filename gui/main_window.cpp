#include "main_window.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDesktopServices>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QTabWidget>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>
#include <filesystem>

#include "core/text.h"
#include "field_editors.h"
#include "file_filter.h"
#include "graph_view.h"
#include "history_options.h"
#include "mode_panel.h"
#include "queue_dialog.h"
#include "sheet_text.h"
#include "sheet_view.h"
#include "shell/modes.h"

namespace tidemark::gui {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }
QString q(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

std::string join(const std::vector<std::string>& lines) {
  std::string text;
  for (const auto& line : lines) text += (text.empty() ? "" : "\n") + line;
  return text;
}

constexpr std::string_view kSheetTitle = "Data Spread Sheet";

}  // namespace

MainWindow::MainWindow(Issue issue, std::string version, QWidget* parent)
    : QMainWindow(parent), issue_(std::move(issue)), version_(std::move(version)) {
  setWindowTitle("Tidemark");
  setObjectName("Tidemark");
  centre_ = new QStackedWidget;
  auto* info = new QWidget;
  auto* info_layout = new QVBoxLayout(info);
  info_layout->addStretch(1);
  auto* info_title = new QLabel;
  info_title->setObjectName("hint title");
  QFont bold = info_title->font();
  bold.setBold(true);
  bold.setPointSizeF(bold.pointSizeF() * 1.3);
  info_title->setFont(bold);
  info_title->setAlignment(Qt::AlignCenter);
  info_layout->addWidget(info_title);
  hint_ = new QLabel;
  hint_->setWordWrap(true);
  hint_->setAlignment(Qt::AlignCenter);
  info_layout->addWidget(hint_);
  auto* info_buttons = new QHBoxLayout;
  info_buttons->addStretch(1);
  for (const char* path : {"File/Read a Data File/Native Mode", "Graphics/Load a Graphics Source File"}) {
    auto* b = new QPushButton(q(std::string(path).substr(std::string(path).rfind('/') + 1)));
    connect(b, &QPushButton::clicked, this, [this, path] { action(path)->trigger(); });
    info_buttons->addWidget(b);
  }
  info_buttons->addStretch(1);
  info_layout->addLayout(info_buttons);
  info_layout->addStretch(2);
  centre_->addWidget(info);
  graph_view_ = new GraphView([this](const std::string& c) { this->issue(c); });
  centre_->addWidget(graph_view_);
  setCentralWidget(centre_);

  build_menus();
  build_tool_bar();
  build_status_bar();
  build_docks();
  resize(1280, 800);
}

MainWindow::~MainWindow() = default;

void MainWindow::issue(const std::string& command) {
  last_command_->setText(q("> " + command));
  issue_(command);
}

void MainWindow::build_menus() {
  for (std::string_view title : menu_titles()) {
    menus_[std::string(title)] = menuBar()->addMenu(q(title));
  }
  // Mode: one entry per mode of the mode table, in its order.
  auto* modes = new QActionGroup(this);
  for (int i = 1; i <= shell::kModeCount; ++i) {
    const std::string name(shell::mode_info(i).name);
    QAction* a = menus_["Mode"]->addAction(q(name));
    a->setCheckable(true);
    a->setStatusTip(q("Choose the " + name + " mode (MODE " + name + ")"));
    modes->addAction(a);
    connect(a, &QAction::triggered, this, [this, name] { issue("MODE " + name); });
    actions_["Mode/" + name] = a;
  }
  data_menu_ = menus_["Data_Select"];
  rebuild_data_select();

  for (const MenuEntry& entry : menu_entries()) {
    const std::string path(entry.path);
    QMenu* menu = menus_[path.substr(0, path.find('/'))];
    std::string prefix = path.substr(0, path.find('/'));
    std::size_t from = path.find('/') + 1;
    for (std::size_t slash; (slash = path.find('/', from)) != std::string::npos; from = slash + 1) {
      prefix += "/" + path.substr(from, slash - from);
      QMenu*& sub = menus_[prefix];
      if (sub == nullptr) sub = menu->addMenu(q(path.substr(from, slash - from)));
      menu = sub;
    }
    QAction* a = menu->addAction(q(path.substr(from)));
    a->setStatusTip(q(entry.hint));
    const std::string command(entry.command);
    const WindowAction window_action = entry.action;
    connect(a, &QAction::triggered, this, [this, command, window_action] {
      if (command.empty()) return run_action(window_action);
      issue(command);
    });
    actions_[path] = a;
    if (path == "File/Exit") a->setShortcut(QKeySequence::Quit);
  }
  action("File/Write Summary Books (csv)")->setEnabled(false);
}

void MainWindow::build_tool_bar() {
  QToolBar* bar = addToolBar(tr("Tools"));
  bar->setObjectName("tool bar");
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  const auto add = [&](const char* path, QStyle::StandardPixmap icon, const char* text) {
    QAction* a = action(path);
    a->setIcon(style()->standardIcon(icon));
    a->setIconText(tr(text));
    bar->addAction(a);
  };
  add("File/Read a Data File/Native Mode", QStyle::SP_DialogOpenButton, "Read");
  add("File/Run a Batch File (@)", QStyle::SP_MediaPlay, "Run Batch");
  bar->addSeparator();
  bar->addWidget(new QLabel(q(shell::kModeListTitle) + " "));
  algorithm_ = new QComboBox;
  algorithm_->setObjectName(q(shell::kModeListTitle));
  algorithm_->setToolTip(q(shell::kModeListPrompt));
  algorithm_->addItem(QString());
  for (int i = 1; i <= shell::kModeCount; ++i) algorithm_->addItem(q(shell::mode_info(i).name));
  connect(algorithm_, &QComboBox::activated, this, [this](int index) {
    if (index >= 1) issue("MODE " + std::string(shell::mode_info(index).name));
  });
  bar->addWidget(algorithm_);
  bar->addSeparator();
  add("Tools/Data SpreadSheet", QStyle::SP_FileDialogDetailedView, "Spreadsheet");
  add("Graphics/Load a Graphics Source File", QStyle::SP_DirOpenIcon, "Load Graph");
  add("Graphics/Previous Image", QStyle::SP_ArrowBack, "Previous");
  add("Graphics/Next Image", QStyle::SP_ArrowForward, "Next");
  add("Results/Log File/View", QStyle::SP_FileDialogContentsView, "Log");
}

void MainWindow::build_status_bar() {
  last_command_ = new QLabel;
  statusBar()->addPermanentWidget(last_command_);
  progress_bar_ = new QProgressBar;
  progress_bar_->setRange(0, 100);
  progress_bar_->setMaximumWidth(220);
  progress_bar_->setVisible(false);
  statusBar()->addPermanentWidget(progress_bar_);
  cancel_ = new QPushButton(tr("Cancel"));
  cancel_->setObjectName("Cancel");
  cancel_->setVisible(false);
  connect(cancel_, &QPushButton::clicked, this, [this] {
    for (auto& [id, work] : work_) work.cancel->store(true);
    cancel_->setEnabled(false);
  });
  statusBar()->addPermanentWidget(cancel_);
  statusBar()->showMessage(tr("Read a data set: File, Read a Data File, Native Mode"));
}

void MainWindow::build_docks() {
  mode_panel_ = new ModePanel([this](const std::string& c) { issue(c); });
  mode_dock_ = new QDockWidget(tr("Mode"));
  mode_dock_->setObjectName("mode dock");
  mode_dock_->setWidget(mode_panel_);
  mode_dock_->setMinimumWidth(380);
  addDockWidget(Qt::LeftDockWidgetArea, mode_dock_);
  mode_dock_->hide();

  viewers_ = new QTabWidget;
  viewers_->setTabsClosable(true);
  connect(viewers_, &QTabWidget::tabCloseRequested, this, [this](int i) {
    QWidget* w = viewers_->widget(i);
    viewers_->removeTab(i);
    delete w;
    if (viewers_->count() == 0) viewer_dock_->hide();
  });
  viewer_dock_ = new QDockWidget(tr("Viewer"));
  viewer_dock_->setObjectName("viewer dock");
  viewer_dock_->setWidget(viewers_);
  addDockWidget(Qt::BottomDockWidgetArea, viewer_dock_);
  viewer_dock_->hide();

  sheet_view_ = new SheetView([this](const std::string& c) { issue(c); });
  sheet_dock_ = new QDockWidget(q(kSheetTitle));
  sheet_dock_->setObjectName("sheet dock");
  sheet_dock_->setWidget(sheet_view_);
  addDockWidget(Qt::BottomDockWidgetArea, sheet_dock_);
  sheet_dock_->hide();
}

QAction* MainWindow::action(const std::string& path) const {
  const auto it = actions_.find(path);
  return it == actions_.end() ? nullptr : it->second;
}

void MainWindow::rebuild_data_select() {
  data_menu_->clear();
  if (session_.data_sets.empty()) {
    data_menu_->addAction(tr("(no data set loaded)"))->setEnabled(false);
    return;
  }
  auto* group = new QActionGroup(data_menu_);
  const std::vector<std::string> names = data_set_names();
  for (std::size_t i = 0; i < session_.data_sets.size(); ++i) {
    const ui::SessionView::DataSet& set = session_.data_sets[i];
    // SELECT takes a handle first, then a file name; a handle another set shares
    // would pick the first of them.
    bool unique_handle = !set.handle.empty();
    for (std::size_t j = 0; j < i && unique_handle; ++j)
      unique_handle = session_.data_sets[j].handle != set.handle;
    const std::string name = unique_handle ? set.handle : set.file_name;
    const std::string text = names[i] + (set.modified ? "  *" : "");
    QAction* a = data_menu_->addAction(q(text));
    a->setCheckable(true);
    a->setChecked(static_cast<int>(i) == session_.current);
    a->setStatusTip(q("Make this data set current (SELECT " + name + ")"));
    group->addAction(a);
    connect(a, &QAction::triggered, this, [this, name] { issue("SELECT \"" + name + "\""); });
  }
}

std::vector<std::string> MainWindow::data_set_names() const {
  std::vector<std::string> names;
  for (const ui::SessionView::DataSet& set : session_.data_sets)
    names.push_back(std::to_string(names.size() + 1) + "  " + set.handle + "  (" + set.file_name + ")");
  return names;
}

void MainWindow::follow_graph_options() {
  if (session_.history != history_read_) {
    history_read_ = session_.history;
    history_offset_ = 0;
  }
  QFile file(q(history_read_));
  if (!file.open(QIODevice::ReadOnly) || !file.seek(history_offset_)) return;
  QByteArray added = file.readAll();
  added.truncate(added.lastIndexOf('\n') + 1);  // whole lines only; the rest comes later
  history_offset_ += added.size();
  graphics::OptionStates states = graph_view_->states();
  apply_option_lines(added.toStdString(), states);
  graph_view_->set_states(states);
}

void MainWindow::open_queue_dialog() {
  if (auto* open = findChild<QueueDialog*>()) return open->raise();
  auto* dialog = new QueueDialog([this](const std::string& c) { issue(c); }, this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->show();
}

void MainWindow::show_session(const ui::SessionView& view) {
  session_ = view;
  follow_graph_options();
  // A graph a calculation wrote to the run's graph file is shown at once.
  const QFileInfo graph(q(view.graph));
  if (graph.exists() && graph.size() > 0 &&
      (graph.lastModified() != graph_seen_ || graph.size() != graph_size_seen_)) {
    graph_seen_ = graph.lastModified();
    graph_size_seen_ = graph.size();
    show_graph(view.graph);
  }
  rebuild_data_select();
  if (FieldEditors* editors = mode_panel_->editors()) editors->set_data_sets(data_set_names());
  const bool loaded = !view.data_sets.empty();
  action("File/Write Summary Books (csv)")->setEnabled(loaded);
  // 0 before any mode is chosen.
  const int mode = view.mode.empty() ? 0 : shell::find_mode(view.mode).value_or(0);
  for (int i = 1; i <= shell::kModeCount; ++i)
    action("Mode/" + std::string(shell::mode_info(i).name))->setChecked(mode == i);
  algorithm_->setCurrentIndex(mode);
  if (mode >= 1) mode_panel_->set_prefix(std::string(shell::mode_info(mode).prefix));
  if (loaded || graph_view_->canvas()->plot()) centre_->setCurrentWidget(graph_view_);
  mode_dock_->setVisible(!mode_panel_->empty());
  if (loaded) statusBar()->showMessage(tr("Ready"));
  QString title = "Tidemark";
  if (mode >= 1) title += " - " + q(view.mode);
  if (loaded) title += " - " + q(view.data_sets[static_cast<std::size_t>(view.current)].file_name);
  setWindowTitle(title);
}

void MainWindow::show_hint(const std::string& title, const std::vector<std::string>& lines) {
  findChild<QLabel*>("hint title")->setText(q(title));
  hint_->setText(q(join(lines)));
  if (!graph_view_->canvas()->plot()) centre_->setCurrentIndex(0);
}

void MainWindow::show_message(const std::string& title, const std::vector<std::string>& lines) {
  auto* box = new QMessageBox(QMessageBox::Information, q(title), q(join(lines)), QMessageBox::Ok,
                              this);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
  statusBar()->showMessage(q(title + ": " + (lines.empty() ? "" : lines.front())));
}

std::optional<bool> MainWindow::ask(const std::string& title, const std::string& question) {
  QString text = q(question);
  // Ending the program names the data sets that would be lost.
  if (title == "Terminate the Program") {
    for (const auto& set : session_.data_sets) {
      if (set.modified) text += "\n" + q(set.file_name + " is modified and has not been written.");
    }
  }
  return QMessageBox::question(this, q(title), text, QMessageBox::Yes | QMessageBox::No,
                               QMessageBox::No) == QMessageBox::Yes;
}

std::optional<std::string> MainWindow::choose_file(const ui::FileRequest& request) {
  QFileDialog dialog(this, q(request.title));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  QStringList filters;
  for (const auto& f : name_filters(request.filter)) filters << q(f);
  dialog.setNameFilters(filters);
  dialog.setAcceptMode(request.for_writing ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(request.for_writing ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  if (!request.default_name.empty()) dialog.selectFile(q(request.default_name));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return dialog.selectedFiles().front().toStdString();
}

std::optional<std::string> MainWindow::choose_folder(const std::string& title) {
  QFileDialog dialog(this, q(title));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return dialog.selectedFiles().front().toStdString();
}

std::optional<std::size_t> MainWindow::choose_item(const std::string& title,
                                                   const std::string& prompt,
                                                   const std::vector<std::string>& items) {
  QStringList list;
  for (const auto& item : items) list << q(std::string(core::trim(item)));
  bool ok = false;
  const QString chosen = QInputDialog::getItem(this, q(title), q(prompt), list, 0, false, &ok);
  if (!ok) return std::nullopt;
  const auto at = list.indexOf(chosen);
  if (at < 0) return std::nullopt;
  return static_cast<std::size_t>(at);
}

void MainWindow::show_dialog(const ui::Dialog& dialog, const std::vector<ui::FieldValue>& values) {
  mode_panel_->show_dialog(dialog, values);
  mode_panel_->editors()->set_data_sets(data_set_names());
  mode_dock_->setWindowTitle(q(dialog.title));
  mode_dock_->show();
}

void MainWindow::close_dialog() {
  mode_panel_->clear();
  mode_dock_->setWindowTitle(tr("Mode"));
  mode_dock_->hide();
}

bool MainWindow::edit_dialog(const ui::Dialog& dialog, std::vector<ui::FieldValue>& values) {
  QDialog window(this);
  window.setWindowTitle(q(dialog.title));
  auto* layout = new QVBoxLayout(&window);
  auto* editors = new FieldEditors(dialog);
  editors->show_values(values);
  layout->addWidget(editors);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::rejected, &window, &QDialog::reject);
  connect(buttons, &QDialogButtonBox::accepted, &window, [&] {
    std::string problem;
    if (editors->read_values(values, problem)) return window.accept();
    QMessageBox::warning(&window, q(dialog.title), q(problem));
  });
  return window.exec() == QDialog::Accepted;
}

void MainWindow::show_text(const std::string& title, const std::string& text) {
  if (title == kSheetTitle) {
    const SheetTable table = read_sheet_text(text);
    if (!table.labels.empty()) {
      sheet_view_->show_table(table);
      sheet_dock_->show();
      sheet_dock_->raise();
      return;
    }
  }
  int at = -1;
  for (int i = 0; i < viewers_->count(); ++i) {
    if (viewers_->tabText(i) == q(title)) at = i;
  }
  auto* viewer = at >= 0 ? static_cast<QPlainTextEdit*>(viewers_->widget(at)) : new QPlainTextEdit;
  if (at < 0) {
    viewer->setReadOnly(true);
    viewer->setLineWrapMode(QPlainTextEdit::NoWrap);
    viewer->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    at = viewers_->addTab(viewer, q(title));
  }
  viewer->setPlainText(q(text));
  viewers_->setCurrentIndex(at);
  viewer_dock_->show();
  viewer_dock_->raise();
}

void MainWindow::show_graph(const std::string& path) {
  std::string problem;
  if (!graph_view_->load(path, problem)) {
    statusBar()->showMessage(q("Graphics: " + problem));
    return;
  }
  centre_->setCurrentWidget(graph_view_);
}

void MainWindow::view_file(const std::string& title, const std::string& path) {
  QFile file(q(path));
  if (!file.open(QIODevice::ReadOnly)) {
    show_message(title, {"Could not read " + path});
    return;
  }
  show_text(title, file.readAll().toStdString());
}

void MainWindow::edit_file(const std::string& path) {
  if (!QDesktopServices::openUrl(QUrl::fromLocalFile(q(path))))
    show_message("Edit", {"No program to edit " + path + " was found."});
}

void MainWindow::run_action(WindowAction action) {
  switch (action) {
    case WindowAction::kNone:
      return;
    case WindowAction::kViewLog:
      return view_file("Log File", session_.log);
    case WindowAction::kViewAnswers:
      return view_file("Current Answers", session_.answers);
    case WindowAction::kViewHistory:
      return view_file("Command History", session_.history);
    case WindowAction::kViewGraph:
      return view_file("Current Graph", session_.graph);
    case WindowAction::kEditLog:
      return edit_file(session_.log);
    case WindowAction::kEditAnswers:
      return edit_file(session_.answers);
    case WindowAction::kEditHistory:
      return edit_file(session_.history);
    case WindowAction::kEditGraphSource:
      return edit_file(session_.graph);
    case WindowAction::kEditGraphSettings:
      return edit_file((std::filesystem::path(session_.history).parent_path().parent_path() /
                        "system" / "grf_view.ini")
                           .string());
    case WindowAction::kEditFile: {
      const QString file = QFileDialog::getOpenFileName(this, tr("Select a file to edit"));
      if (!file.isEmpty()) edit_file(file.toStdString());
      return;
    }
    case WindowAction::kPrintGraph:
      return graph_view_->print();
    case WindowAction::kCopyGraph:
      return graph_view_->copy_to_clipboard();
    case WindowAction::kCalculator:
      if (!QProcess::startDetached("gnome-calculator") && !QProcess::startDetached("xcalc"))
        show_message("Calculator", {"No calculator program was found."});
      return;
    case WindowAction::kAbout:
      return show_message("About Tidemark",
                          {"Tidemark " + version_, "Hormone time-series analysis",
                           "Program folder: " + std::filesystem::path(session_.history)
                                                    .parent_path()
                                                    .parent_path()
                                                    .string()});
    case WindowAction::kQueueJobs:
      return open_queue_dialog();
    case WindowAction::kCommands:
      // Installed beside the program: <prefix>/share/doc/Tidemark/commands.md.
      QDesktopServices::openUrl(QUrl::fromLocalFile(QCoreApplication::applicationDirPath() +
                                                    "/../share/doc/Tidemark/commands.md"));
      return;
  }
}

void MainWindow::begin_progress(int id, const std::string& title,
                                std::shared_ptr<std::atomic<bool>> cancel) {
  work_[id] = {title, 0, std::move(cancel)};
  progress_bar_->setFormat(q(title) + " %p%");
  progress_bar_->setValue(0);
  progress_bar_->setVisible(true);
  cancel_->setVisible(true);
  cancel_->setEnabled(true);
}

void MainWindow::update_progress(int id, int percent) {
  const auto it = work_.find(id);
  if (it == work_.end()) return;
  it->second.percent = percent;
  progress_bar_->setFormat(q(it->second.title) + " %p%");
  progress_bar_->setValue(percent);
}

void MainWindow::end_progress(int id) {
  work_.erase(id);
  if (!work_.empty()) return;
  progress_bar_->setVisible(false);
  cancel_->setVisible(false);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (finished_) return event->accept();
  event->ignore();
  issue("EXIT");
}

void MainWindow::shell_finished() {
  finished_ = true;
  close();
}

}  // namespace tidemark::gui
