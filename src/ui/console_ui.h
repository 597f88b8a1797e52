#pragma once
// The headless program's user interface. Message boxes become "TITLE: text" lines on the
// error stream (standard error by default); listings shown in the text viewer go to the
// output stream; commands are read line by line from the input stream. Questions and
// choosers are put to the user only when the input is a terminal; otherwise nobody can
// answer and the caller's batch answer holds. The hint shown while no data set is
// loaded appears once, on a terminal only.
#include <iosfwd>

#include "ui/ui.h"

namespace tidemark::ui {

class ConsoleUi : public Ui {
 public:
  // Standard input, output and error; interactive when standard input is a terminal.
  ConsoleUi();
  // Message boxes to `err`, nothing interactive.
  explicit ConsoleUi(std::ostream& err);
  ConsoleUi(std::istream& in, std::ostream& out, std::ostream& err, bool interactive);

  void message(std::string_view title, const std::vector<std::string>& lines) override;
  std::optional<bool> ask(std::string_view title, std::string_view question) override;
  std::optional<std::string> choose_file(const FileRequest& request) override;
  std::optional<std::string> choose_folder(std::string_view title) override;
  std::optional<std::size_t> choose_item(std::string_view title, std::string_view prompt,
                                         const std::vector<std::string>& items) override;
  void show_text(std::string_view title, std::string_view text) override;
  std::unique_ptr<Progress> progress(std::string_view title) override;
  // At a terminal: the hint in words for a terminal (the window's lines speak of menus),
  // once per run.
  void show_hint(std::string_view title, const std::vector<std::string>& lines) override;
  // At a terminal: the dialog as text (ui::dialog_text) on the error stream.
  void show_dialog(const Dialog& dialog, const std::vector<FieldValue>& values) override;
  std::optional<std::string> next_command() override;

 private:
  // Prompts on the error stream and reads one line; no value at the end of input or
  // when the line is blank.
  std::optional<std::string> prompt(std::string_view text);

  std::istream* in_;
  std::ostream* out_;
  std::ostream* err_;
  bool interactive_ = false;
  bool hint_shown_ = false;  // a terminal user sees the start-up hint once
};

// Keeps the message boxes it was shown, for tests.
class RecordingUi : public Ui {
 public:
  struct Box {
    std::string title;
    std::vector<std::string> lines;
  };
  void message(std::string_view title, const std::vector<std::string>& lines) override {
    boxes_.push_back({std::string(title), lines});
  }
  const std::vector<Box>& boxes() const { return boxes_; }

 private:
  std::vector<Box> boxes_;
};

}  // namespace tidemark::ui
