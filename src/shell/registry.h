#pragma once
// The user registry, system/registry.ini: "Key=Value" lines (the default data folder is
// `Default_Folder`). Keys are matched without regard to letter case; the order of the
// entries is kept when the file is written back.
//
//   Registry r;
//   if (r.load(path) == Registry::Load::kUnreadable) report("Could not open user registry");
//   r.set("Default_Folder", "/data/lh");
//   if (!r.save(path)) report("Could not write user registry");
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tidemark::shell {

inline constexpr std::string_view kDefaultFolderKey = "Default_Folder";

class Registry {
 public:
  enum class Load { kRead, kMissing, kUnreadable };

  // Reads the entries of `path`. Lines without "=" and lines beginning ";" or "!" are
  // comments; blanks around keys and values are dropped. A missing file leaves the
  // registry empty (kMissing); a file that exists but cannot be read is kUnreadable.
  Load load(const std::filesystem::path& path);

  // Writes every entry as "Key=Value", replacing the file whole; false on failure.
  bool save(const std::filesystem::path& path) const;

  std::optional<std::string> get(std::string_view key) const;
  // Sets `key` to `value`, adding the entry when it is new.
  void set(std::string_view key, std::string_view value);

 private:
  std::vector<std::pair<std::string, std::string>> entries_;
};

}  // namespace tidemark::shell
