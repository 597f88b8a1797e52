#pragma once
// File reads and copies of the shell that report failures as values.
#include <filesystem>
#include <string>

namespace tidemark::shell {

// The whole contents of `path`; false when it cannot be read (errno tells why).
bool read_file(const std::filesystem::path& path, std::string& text);

// Copies `from` over `to`; a failed copy leaves an existing `to` whole (the copy is
// written beside it and renamed). Returns 0 on success, else the system's error code,
// with the reason in words in `reason`.
int copy_file(const std::filesystem::path& from, const std::filesystem::path& to,
              std::string& reason);

}  // namespace tidemark::shell
