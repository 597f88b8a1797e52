#pragma once
// The desktop program's main window: the menus (File, Mode, Data_Select, Results,
// Graphics, Tools, Help), a tool bar, a status bar with hints and the progress of long
// work with its Cancel button; the graph view in the middle ("Initial Program
// Information" while no data set is loaded), the mode's dialog, the viewers and the
// data spreadsheet beside it. Every action is a command text handed to `issue`; the
// window shows what the shell sends back through WindowUi. All of it runs on the
// window's thread.
#include <QDateTime>
#include <QMainWindow>
#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "menu_entries.h"
#include "ui/ui.h"

class QAction;
class QComboBox;
class QDockWidget;
class QLabel;
class QMenu;
class QProgressBar;
class QPushButton;
class QStackedWidget;
class QTabWidget;

namespace tidemark::gui {

class GraphView;
class ModePanel;
class SheetView;

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  using Issue = std::function<void(const std::string&)>;
  MainWindow(Issue issue, std::string version, QWidget* parent = nullptr);
  ~MainWindow() override;

  // Issues a command as if typed: it goes to the shell and the status bar shows it.
  void issue(const std::string& command);

  // What the shell shows; see ui::Ui for each.
  void show_message(const std::string& title, const std::vector<std::string>& lines);
  std::optional<bool> ask(const std::string& title, const std::string& question);
  std::optional<std::string> choose_file(const ui::FileRequest& request);
  std::optional<std::string> choose_folder(const std::string& title);
  std::optional<std::size_t> choose_item(const std::string& title, const std::string& prompt,
                                         const std::vector<std::string>& items);
  void show_dialog(const ui::Dialog& dialog, const std::vector<ui::FieldValue>& values);
  void close_dialog();
  bool edit_dialog(const ui::Dialog& dialog, std::vector<ui::FieldValue>& values);
  void show_text(const std::string& title, const std::string& text);
  void show_graph(const std::string& path);
  void show_hint(const std::string& title, const std::vector<std::string>& lines);
  void show_session(const ui::SessionView& view);

  // Progress of long work: `id` names one piece of work while it runs; Cancel sets
  // every running piece's flag.
  void begin_progress(int id, const std::string& title, std::shared_ptr<std::atomic<bool>> cancel);
  void update_progress(int id, int percent);
  void end_progress(int id);

  // The shell has ended: the window closes.
  void shell_finished();

  // For tests and screenshots.
  QAction* action(const std::string& path) const;
  ModePanel* mode_panel() const { return mode_panel_; }
  GraphView* graph_view() const { return graph_view_; }
  SheetView* sheet_view() const { return sheet_view_; }
  QPushButton* cancel_button() const { return cancel_; }
  QTabWidget* viewers() const { return viewers_; }
  const ui::SessionView& session() const { return session_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void build_menus();
  void build_tool_bar();
  void build_status_bar();
  void build_docks();
  void run_action(WindowAction action);
  void view_file(const std::string& title, const std::string& path);
  void edit_file(const std::string& path);
  void rebuild_data_select();
  // "1  LH  (lh.dat)" for each data set loaded, in store order.
  std::vector<std::string> data_set_names() const;
  // The graph options that GRF_OPTION lines added to the history since it was last read.
  void follow_graph_options();
  void open_queue_dialog();

  Issue issue_;
  std::string version_;
  ui::SessionView session_;
  std::map<std::string, QAction*> actions_;
  std::map<std::string, QMenu*> menus_;
  QMenu* data_menu_ = nullptr;
  QComboBox* algorithm_ = nullptr;
  QStackedWidget* centre_ = nullptr;
  QLabel* hint_ = nullptr;
  GraphView* graph_view_ = nullptr;
  ModePanel* mode_panel_ = nullptr;
  SheetView* sheet_view_ = nullptr;
  QTabWidget* viewers_ = nullptr;
  QDockWidget* mode_dock_ = nullptr;
  QDockWidget* viewer_dock_ = nullptr;
  QDockWidget* sheet_dock_ = nullptr;
  QLabel* last_command_ = nullptr;
  QProgressBar* progress_bar_ = nullptr;
  QPushButton* cancel_ = nullptr;
  struct Work {
    std::string title;
    int percent = 0;
    std::shared_ptr<std::atomic<bool>> cancel;
  };
  std::map<int, Work> work_;
  bool finished_ = false;
  std::string history_read_;     // the history file as read for graph options
  qint64 history_offset_ = 0;    // how much of it
  QDateTime graph_seen_;  // the run's graph file as last shown
  qint64 graph_size_seen_ = -1;
};

}  // namespace tidemark::gui
