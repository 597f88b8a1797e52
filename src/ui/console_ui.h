#pragma once
// Message boxes of the headless program: each text line becomes "TITLE: text" on a stream
// (standard error by default).
#include <iosfwd>

#include "ui/ui.h"

namespace tidemark::ui {

class ConsoleUi : public Ui {
 public:
  ConsoleUi();  // writes to standard error
  explicit ConsoleUi(std::ostream& out) : out_(&out) {}
  void message(std::string_view title, const std::vector<std::string>& lines) override;

 private:
  std::ostream* out_;
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
