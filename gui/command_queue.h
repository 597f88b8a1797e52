#pragma once
// The commands the windows issue, on their way to the shell, which runs on its own
// thread: the window pushes, the shell takes them one at a time in the order issued,
// waiting while there are none.
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <string>

namespace tidemark::gui {

class CommandQueue {
 public:
  void push(std::string command);
  // The next command; waits for one. No value once the queue is closed and empty.
  std::optional<std::string> pop();
  // Ends the input: the shell then ends as at the end of a command file.
  void close();
  // True while the shell waits for a command and none is queued: every command issued
  // so far is carried out.
  bool idle() const;

 private:
  mutable std::mutex mutex_;
  std::condition_variable ready_;
  std::deque<std::string> commands_;
  bool closed_ = false;
  bool waiting_ = false;
};

}  // namespace tidemark::gui
