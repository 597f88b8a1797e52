#include "shell/registry.h"

#include <sstream>
#include <system_error>

#include "core/file_replace.h"
#include "core/text.h"
#include "shell/file_ops.h"

namespace tidemark::shell {

namespace fs = std::filesystem;

namespace {
bool same_key(std::string_view a, std::string_view b) {
  return a.size() == b.size() && core::starts_with_nocase(a, b);
}
}  // namespace

Registry::Load Registry::load(const fs::path& path) {
  entries_.clear();
  std::error_code ec;
  if (!fs::exists(path, ec)) return Load::kMissing;
  std::string text;
  if (!read_file(path, text)) return Load::kUnreadable;
  std::istringstream lines(text);
  std::string line;
  while (std::getline(lines, line)) {
    const std::string_view l = core::trim(line);
    const auto eq = l.find('=');
    if (l.empty() || l.front() == ';' || l.front() == '!' || eq == std::string_view::npos) continue;
    set(core::trim(l.substr(0, eq)), core::trim(l.substr(eq + 1)));
  }
  return Load::kRead;
}

bool Registry::save(const fs::path& path) const {
  std::string text = "; Tidemark user registry\n";
  for (const auto& [key, value] : entries_) text += key + "=" + value + "\n";
  return core::replace_file(path, text).ok();
}

std::optional<std::string> Registry::get(std::string_view key) const {
  for (const auto& [k, v] : entries_) {
    if (same_key(k, key)) return v;
  }
  return std::nullopt;
}

void Registry::set(std::string_view key, std::string_view value) {
  for (auto& [k, v] : entries_) {
    if (same_key(k, key)) {
      v = value;
      return;
    }
  }
  entries_.emplace_back(key, value);
}

}  // namespace tidemark::shell
