#include "ui/console_ui.h"

#include <unistd.h>

#include <iostream>

#include "core/text.h"

namespace tidemark::ui {

namespace {

// Shows the percentage done on one rewritten line of the error stream, when that stream
// is a terminal; never cancels.
class ConsoleProgress : public Progress {
 public:
  ConsoleProgress(std::ostream& err, std::string_view title, bool visible)
      : err_(err), title_(title), visible_(visible) {}
  ~ConsoleProgress() override {
    if (visible_ && shown_ >= 0) err_ << '\n' << std::flush;
  }
  bool update(double fraction) override {
    const int percent = static_cast<int>(fraction * 100.0);
    if (visible_ && percent != shown_) {
      err_ << '\r' << title_ << ": " << percent << '%' << std::flush;
      shown_ = percent;
    }
    return true;
  }

 private:
  std::ostream& err_;
  std::string title_;
  bool visible_;
  int shown_ = -1;
};

}  // namespace

ConsoleUi::ConsoleUi()
    : in_(&std::cin), out_(&std::cout), err_(&std::cerr), interactive_(isatty(0) != 0) {}

ConsoleUi::ConsoleUi(std::ostream& err) : in_(&std::cin), out_(&std::cout), err_(&err) {}

ConsoleUi::ConsoleUi(std::istream& in, std::ostream& out, std::ostream& err, bool interactive)
    : in_(&in), out_(&out), err_(&err), interactive_(interactive) {}

void ConsoleUi::message(std::string_view title, const std::vector<std::string>& lines) {
  for (const auto& line : lines) *err_ << title << ": " << line << '\n';
  err_->flush();
}

std::optional<std::string> ConsoleUi::prompt(std::string_view text) {
  *err_ << text << std::flush;
  std::string line;
  if (!std::getline(*in_, line)) return std::nullopt;
  const std::string_view answer = core::trim(line);
  if (answer.empty()) return std::nullopt;
  return std::string(answer);
}

std::optional<bool> ConsoleUi::ask(std::string_view title, std::string_view question) {
  if (!interactive_) return std::nullopt;
  for (;;) {
    const auto answer = prompt(std::string(title) + ": " + std::string(question) + " (Y/N) ");
    if (!answer) return std::nullopt;
    const std::string a = core::to_upper(*answer);
    if (a == "Y" || a == "YES") return true;
    if (a == "N" || a == "NO") return false;
  }
}

// A blank answer takes the name offered, when there is one.
std::optional<std::string> ConsoleUi::choose_file(const FileRequest& request) {
  if (!interactive_) return std::nullopt;
  if (request.default_name.empty()) return prompt(request.title + ": ");
  const auto answer = prompt(request.title + " [" + request.default_name + "]: ");
  if (!answer && in_->good()) return request.default_name;
  return answer;
}

std::optional<std::string> ConsoleUi::choose_folder(std::string_view title) {
  if (!interactive_) return std::nullopt;
  return prompt(std::string(title) + ": ");
}

// Lists the items numbered from 1 and takes a number or an item's text.
std::optional<std::size_t> ConsoleUi::choose_item(std::string_view title,
                                                  std::string_view prompt_text,
                                                  const std::vector<std::string>& items) {
  if (!interactive_) return std::nullopt;
  *err_ << title << '\n';
  for (std::size_t i = 0; i < items.size(); ++i) *err_ << "  " << i + 1 << "  " << items[i] << '\n';
  const auto answer = prompt(std::string(prompt_text) + ": ");
  if (!answer) return std::nullopt;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (*answer == std::to_string(i + 1) ||
        core::to_upper(core::trim(items[i])) == core::to_upper(*answer)) {
      return i;
    }
  }
  return std::nullopt;
}

void ConsoleUi::show_text(std::string_view, std::string_view text) {
  *out_ << text;
  if (!text.empty() && text.back() != '\n') *out_ << '\n';
  out_->flush();
}

std::unique_ptr<Progress> ConsoleUi::progress(std::string_view title) {
  return std::make_unique<ConsoleProgress>(*err_, title, err_ == &std::cerr && isatty(2) != 0);
}

void ConsoleUi::show_hint(std::string_view title, const std::vector<std::string>&) {
  if (interactive_ && !hint_shown_) {
    message(title, {"The first step to using this program is to read a data set: type",
                    "READ_NATIVE \"file.dat\". A graph source file is loaded with LOAD_GRF "
                    "\"file.grf\".",
                    "HELP lists every command; MODE name chooses an analysis."});
  }
  hint_shown_ = true;
}

void ConsoleUi::show_dialog(const Dialog& dialog, const std::vector<FieldValue>& values) {
  if (!interactive_) return;
  *err_ << dialog_text(dialog, values) << std::flush;
}

std::optional<std::string> ConsoleUi::next_command() {
  if (interactive_) *err_ << "> " << std::flush;
  std::string line;
  if (!std::getline(*in_, line)) return std::nullopt;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

}  // namespace tidemark::ui
