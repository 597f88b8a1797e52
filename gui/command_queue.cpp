#include "command_queue.h"

namespace tidemark::gui {

void CommandQueue::push(std::string command) {
  {
    std::lock_guard lock(mutex_);
    commands_.push_back(std::move(command));
  }
  ready_.notify_one();
}

std::optional<std::string> CommandQueue::pop() {
  std::unique_lock lock(mutex_);
  waiting_ = true;
  ready_.wait(lock, [this] { return closed_ || !commands_.empty(); });
  waiting_ = false;
  if (commands_.empty()) return std::nullopt;
  std::string command = std::move(commands_.front());
  commands_.pop_front();
  return command;
}

void CommandQueue::close() {
  {
    std::lock_guard lock(mutex_);
    closed_ = true;
  }
  ready_.notify_all();
}

bool CommandQueue::idle() const {
  std::lock_guard lock(mutex_);
  return waiting_ && commands_.empty();
}

}  // namespace tidemark::gui
