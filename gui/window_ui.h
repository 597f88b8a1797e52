#pragma once
// The desktop program's implementation of ui::Ui. The shell runs on a thread of its own
// and calls it there; each call is carried to the main window's thread, waiting for the
// answer where there is one (a question, a chooser, a modal dialog). Message boxes do
// not wait. Commands come from the window through the command queue. Long work reports
// its progress to the status bar, whose Cancel button the work sees at its next update.
//
// In a batch run (--screenshot) nobody answers: messages go to standard error as in the
// headless program, questions take their batch answer, choosers choose nothing.
#include <atomic>
#include <mutex>
#include <optional>
#include <string>

#include "command_queue.h"
#include "ui/ui.h"

namespace tidemark::gui {

class MainWindow;

class WindowUi : public ui::Ui {
 public:
  WindowUi(MainWindow& window, CommandQueue& commands, bool batch);

  // When the shell first waits for a command the user would give, writes a PNG of the
  // main window to `path` and ends the input.
  void screenshot_when_waiting(std::string path) { screenshot_ = std::move(path); }

  void message(std::string_view title, const std::vector<std::string>& lines) override;
  std::optional<bool> ask(std::string_view title, std::string_view question) override;
  std::optional<std::string> choose_file(const ui::FileRequest& request) override;
  std::optional<std::string> choose_folder(std::string_view title) override;
  std::optional<std::size_t> choose_item(std::string_view title, std::string_view prompt,
                                         const std::vector<std::string>& items) override;
  void show_dialog(const ui::Dialog& dialog, const std::vector<ui::FieldValue>& values) override;
  void update_dialog(const ui::Dialog& dialog, const std::vector<ui::FieldValue>& values) override;
  void close_dialog() override;
  bool edit_dialog(const ui::Dialog& dialog, std::vector<ui::FieldValue>& values) override;
  void show_text(std::string_view title, std::string_view text) override;
  void show_graph(const std::string& path) override;
  std::unique_ptr<ui::Progress> progress(std::string_view title) override;
  void show_hint(std::string_view title, const std::vector<std::string>& lines) override;
  void show_session(const ui::SessionView& view) override;
  std::optional<std::string> next_command() override;

 private:
  MainWindow& window_;
  CommandQueue& commands_;
  bool batch_;
  std::optional<std::string> screenshot_;
  std::atomic<int> next_work_{0};
  struct PendingUpdate {
    ui::Dialog dialog;
    std::vector<ui::FieldValue> values;
  };
  std::mutex update_mutex_;
  std::optional<PendingUpdate> pending_update_;  // values not yet shown
};

// Writes a PNG of `window` as it is now drawn; false when the file cannot be written.
bool save_screenshot(MainWindow& window, const std::string& path);

}  // namespace tidemark::gui
