#pragma once
// The program folder ("home") and its subfolders system/, temp/ and help/.
#include <filesystem>
#include <optional>
#include <string>

namespace tidemark::shell {

struct Folders {
  std::filesystem::path home;
  std::filesystem::path system;  // registry.ini, the do_*.ini settings files, grf_view.ini
  std::filesystem::path temp;    // run files, listings, fix files
  std::filesystem::path help;
};

// The user registry, system/registry.ini.
inline std::filesystem::path registry_path(const Folders& folders) {
  return folders.system / "registry.ini";
}

// The program folder from the environment: `tidemark_home` when set and not empty, else
// `xdg_data_home`/tidemark, else `user_home`/.local/share/tidemark; no value when none of
// them is set. Null pointers stand for unset variables.
std::optional<std::filesystem::path> home_folder(const char* tidemark_home,
                                                 const char* xdg_data_home, const char* user_home);

// Creates `home` and its three subfolders where they are missing; the folders come back
// as absolute paths, so that they stay valid when the working folder changes. No value,
// and a message naming the folder in `error`, when one cannot be created.
std::optional<Folders> prepare_folders(const std::filesystem::path& home, std::string& error);

}  // namespace tidemark::shell
