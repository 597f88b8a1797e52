#include "core/file_replace.h"

#include <fmt/format.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <memory>
#include <system_error>

namespace tidemark::core {

namespace {

struct FileCloser {
  void operator()(std::FILE* f) const { std::fclose(f); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

// A name beside the target that no other writer uses: the target's name, a clock
// reading and a per-process counter. Creation is exclusive, so a clash is retried.
std::filesystem::path temporary_name(const std::filesystem::path& target) {
  static std::atomic<unsigned> counter{0};
  const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
  return target.parent_path() /
         fmt::format(".{}.{:x}-{}.tmp", target.filename().string(), ticks, counter++);
}

// Opens a new temporary file for writing; null (with `path` set to the last name
// tried) when none can be created.
File create_temporary(const std::filesystem::path& target, std::filesystem::path& path) {
  constexpr int kAttempts = 16;
  for (int i = 0; i < kAttempts; ++i) {
    path = temporary_name(target);
    File f(std::fopen(path.c_str(), "wbx"));
    if (f || errno != EEXIST) return f;
  }
  return nullptr;
}

ReplaceResult failure(ReplaceStatus status, std::string message) {
  return {status, std::move(message)};
}

}  // namespace

ReplaceResult replace_file(const std::filesystem::path& target, std::string_view content) {
  std::filesystem::path temporary;
  File file = create_temporary(target, temporary);
  if (!file) {
    return failure(
        ReplaceStatus::kNotCreated,
        fmt::format("Cannot create a file beside {}: {}", target.string(), std::strerror(errno)));
  }
  const bool written =
      std::fwrite(content.data(), 1, content.size(), file.get()) == content.size() &&
      std::fflush(file.get()) == 0;
  const int write_error = errno;
  const bool closed = std::fclose(file.release()) == 0;
  std::error_code ignored;
  if (!written || !closed) {
    std::filesystem::remove(temporary, ignored);
    return failure(ReplaceStatus::kNotWritten, fmt::format("Cannot write {}: {}", target.string(),
                               std::strerror(written ? errno : write_error)));
  }
  std::error_code ec;
  std::filesystem::rename(temporary, target, ec);
  if (ec) {
    std::filesystem::remove(temporary, ignored);
    return failure(ReplaceStatus::kNotRenamed,
                   fmt::format("Cannot replace {}: {}", target.string(), ec.message()));
  }
  return {ReplaceStatus::kReplaced, {}};
}

}  // namespace tidemark::core
