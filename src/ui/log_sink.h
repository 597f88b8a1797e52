#pragma once
// Where log lines go. The shell writes them to the run's log file; tests collect them.
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::ui {

class LogSink {
 public:
  virtual ~LogSink() = default;
  // Appends one line (without its line end) to the log.
  virtual void log(std::string_view line) = 0;
};

// A sink that keeps the lines in memory, for tests and for work whose log is written later.
class MemoryLog : public LogSink {
 public:
  void log(std::string_view line) override { lines_.emplace_back(line); }
  const std::vector<std::string>& lines() const { return lines_; }

 private:
  std::vector<std::string> lines_;
};

}  // namespace tidemark::ui
