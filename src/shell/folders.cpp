#include "shell/folders.h"

#include <system_error>

namespace tidemark::shell {

namespace fs = std::filesystem;

namespace {
bool set(const char* value) {
  return value != nullptr && *value != '\0';
}
}  // namespace

std::optional<fs::path> home_folder(const char* tidemark_home, const char* xdg_data_home,
                                    const char* user_home) {
  if (set(tidemark_home)) return fs::path(tidemark_home);
  if (set(xdg_data_home)) return fs::path(xdg_data_home) / "tidemark";
  if (set(user_home)) return fs::path(user_home) / ".local" / "share" / "tidemark";
  return std::nullopt;
}

std::optional<Folders> prepare_folders(const fs::path& home, std::string& error) {
  std::error_code ec;
  const fs::path root = fs::absolute(home, ec);
  Folders folders{root, root / "system", root / "temp", root / "help"};
  for (const fs::path* folder : {&folders.system, &folders.temp, &folders.help}) {
    fs::create_directories(*folder, ec);
    if (!fs::is_directory(*folder, ec)) {
      error = "Could not create the folder " + folder->string();
      return std::nullopt;
    }
  }
  return folders;
}

}  // namespace tidemark::shell
