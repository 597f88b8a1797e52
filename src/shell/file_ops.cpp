#include "shell/file_ops.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <system_error>

#include "core/file_replace.h"

namespace tidemark::shell {

namespace fs = std::filesystem;

bool read_file(const fs::path& path, std::string& text) {
  errno = 0;
  std::error_code ec;
  if (fs::is_directory(path, ec)) {
    errno = EISDIR;
    return false;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    if (errno == 0) errno = ENOENT;
    return false;
  }
  std::ostringstream buffer;
  buffer << in.rdbuf();
  text = std::move(buffer).str();
  return true;
}

int copy_file(const fs::path& from, const fs::path& to, std::string& reason) {
  std::string text;
  if (!read_file(from, text)) {
    const int code = errno;
    reason = "Cannot read " + from.string() + ": " + std::strerror(code);
    return code;
  }
  errno = 0;
  const core::ReplaceResult written = core::replace_file(to, text);
  if (written.ok()) return 0;
  reason = written.message;
  return errno != 0 ? errno : EIO;
}

}  // namespace tidemark::shell
