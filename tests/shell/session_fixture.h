#pragma once
// A session in a fresh program folder, driven by a scripted user interface: commands
// and answers are queued up front, and what the program showed is kept for the test.
#include <deque>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "shell/mode_loop.h"
#include "shell/scratch.h"
#include "shell/session.h"
#include "ui/console_ui.h"

namespace tidemark::testing_support {

// A progress display that keeps every fraction it was shown, and answers `go_on`
// (false: the user pressed Cancel).
class RecordedProgress : public ui::Progress {
 public:
  RecordedProgress(std::vector<double>& fractions, bool go_on)
      : fractions_(fractions), go_on_(go_on) {}
  bool update(double fraction) override {
    fractions_.push_back(fraction);
    return go_on_;
  }

 private:
  std::vector<double>& fractions_;
  bool go_on_;
};

// The modes of a test session: only the mode at menu index `menu_index` (from 1), made
// by `make`.
inline shell::ModuleFactories only_mode(int menu_index, shell::ModuleFactory make) {
  shell::ModuleFactories modes;
  modes[static_cast<std::size_t>(menu_index - 1)] = std::move(make);
  return modes;
}

class ScriptedUi : public ui::RecordingUi {
 public:
  std::deque<std::string> commands;
  std::deque<bool> answers;  // answers to questions; none left means nobody answers
  std::vector<std::string> texts;
  std::vector<std::string> dialogs;
  std::vector<ui::FieldValue> dialog_values;  // as the dialog shows them now
  int dialog_updates = 0;                     // times a mode's written fields were shown
  std::vector<std::vector<ui::FieldValue>> updated_values;  // each of those times, in order
  std::vector<std::string> progress_titles;                 // progress displays started
  std::vector<double> progress_fractions;                   // what they were shown
  bool cancel_progress = false;  // every progress display answers Cancel
  int hints = 0;
  std::optional<std::size_t> item_choice;  // the answer to choose_item
  std::vector<std::string> list_items;     // the items it was offered
  std::string list_title;

  std::optional<std::string> next_command() override {
    if (commands.empty()) return std::nullopt;
    std::string c = commands.front();
    commands.pop_front();
    return c;
  }
  std::optional<bool> ask(std::string_view, std::string_view) override {
    if (answers.empty()) return std::nullopt;
    const bool a = answers.front();
    answers.pop_front();
    return a;
  }
  std::optional<std::size_t> choose_item(std::string_view title, std::string_view,
                                         const std::vector<std::string>& items) override {
    list_title = title;
    list_items = items;
    return item_choice;
  }
  void show_text(std::string_view, std::string_view text) override { texts.emplace_back(text); }
  // The lines of the first text shown (a viewed listing); none when nothing was shown.
  std::vector<std::string> first_text_lines() const {
    std::vector<std::string> lines;
    if (texts.empty()) return lines;
    std::istringstream in(texts.front());
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }
  void show_dialog(const ui::Dialog& d, const std::vector<ui::FieldValue>& values) override {
    dialogs.push_back(d.title);
    dialog_values = values;
  }
  void update_dialog(const ui::Dialog&, const std::vector<ui::FieldValue>& values) override {
    dialog_values = values;
    ++dialog_updates;
    updated_values.push_back(values);
  }
  std::unique_ptr<ui::Progress> progress(std::string_view title) override {
    progress_titles.emplace_back(title);
    return std::make_unique<RecordedProgress>(progress_fractions, !cancel_progress);
  }
  void show_hint(std::string_view, const std::vector<std::string>&) override { ++hints; }

  // Every line of every message box, as "TITLE: text".
  std::vector<std::string> shown() const {
    std::vector<std::string> lines;
    for (const auto& box : boxes()) {
      for (const auto& line : box.lines) lines.push_back(box.title + ": " + line);
    }
    return lines;
  }
};

// A data set of `n` points named `file` with handle `handle`.
inline data::DataSet data_set(const std::string& file, const std::string& handle, int n) {
  data::DataSet set;
  set.file_name = file;
  set.handle = handle;
  for (int i = 0; i < n; ++i) {
    set.push_point(
        {static_cast<float>(10 * i), 1.0f + static_cast<float>(i), 0.1f, 2.0f, 0, 0, 0, 0});
  }
  return set;
}

class SessionFixture {
 public:
  explicit SessionFixture(shell::ModuleFactories modules = {}) : modules_(std::move(modules)) {
    std::string error;
    auto folders = shell::prepare_folders(home_.path(), error);
    core::Random names(5);
    auto files = shell::RunFiles::create(folders->temp, names, "Tidemark test", "test", error);
    session =
        std::make_unique<shell::Session>(shell::ProgramInfo{"Tidemark", "test"}, *folders,
                                         shell::Registry{}, std::move(files), names, ui, modules_);
  }

  // Runs the queued commands through the mode loop until the input ends.
  void run(std::vector<std::string> commands) {
    ui.commands.insert(ui.commands.end(), commands.begin(), commands.end());
    shell::run_mode_loop(*session);
  }

  // The history without its first line.
  std::vector<std::string> history() const {
    return lines_after_first(session->files().history_path());
  }
  std::vector<std::string> log() const { return lines_after_first(session->files().log_path()); }

  Scratch home_;
  ScriptedUi ui;
  std::unique_ptr<shell::Session> session;

 private:
  static std::vector<std::string> lines_after_first(const std::filesystem::path& file) {
    std::istringstream in(Scratch::read(file));
    std::vector<std::string> lines;
    std::string line;
    std::getline(in, line);
    while (std::getline(in, line)) lines.push_back(line);
    return lines;
  }
  shell::ModuleFactories modules_;
};

}  // namespace tidemark::testing_support
