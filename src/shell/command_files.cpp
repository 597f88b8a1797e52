#include "shell/command_files.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/text.h"
#include "shell/command_text.h"

namespace tidemark::shell {

int CommandFiles::free_unit() const {
  for (int unit = kFirstUnit; unit < kFirstUnit + kUnitsTried; ++unit) {
    const bool used = std::any_of(open_.begin(), open_.end(),
                                  [unit](const auto& file) { return file->unit == unit; });
    if (!used) return unit;
  }
  return 0;
}

bool CommandFiles::open(const std::string& name) {
  if (core::is_blank(name) || depth() >= kMaxDepth) return false;
  // Only regular files: a folder has no lines, and a device or a pipe may never end.
  std::error_code ec;
  if (!std::filesystem::is_regular_file(name, ec)) return false;
  const int unit = free_unit();
  if (unit == 0) return false;
  auto file = std::make_unique<OpenFile>();
  file->in.open(name);
  if (!file->in) return false;
  file->unit = unit;
  file->name = name;
  open_.push_back(std::move(file));
  return true;
}

std::optional<std::string> CommandFiles::next() {
  while (!open_.empty()) {
    std::string line;
    OpenFile& file = *open_.back();
    if (!std::getline(file.in, line)) {
      open_.pop_back();
      continue;
    }
    ++file.line;
    if (auto command = command_of_line(line)) {
      last_position_ = file.name + " line " + std::to_string(file.line);
      return command;
    }
  }
  return std::nullopt;
}

}  // namespace tidemark::shell
