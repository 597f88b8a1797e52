#include "data/native_reader.h"

#include <filesystem>
#include <utility>

namespace tidemark::data {

namespace {

constexpr char kCommentChar = ';';

// Folder of `path`, where <name> includes are looked for first.
std::string folder_of(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  return folder.empty() ? std::string(".") : folder;
}

}  // namespace

NativeReadResult read_native_file(const std::string& path, const NativeReadOptions& options) {
  graphics::Preprocessor pp =
      options.opener ? graphics::Preprocessor(options.opener) : graphics::Preprocessor();
  pp.c_pre_proc_init(path, folder_of(path), options.root_path, options.verbose, kCommentChar);
  if (pp.current_unit() < 1) {
    NativeReadResult result;
    result.messages.push_back(
        {std::string(kReadErrorTitle), {std::string(kReadErrorLine), "Cannot open " + path}});
    return result;
  }
  NativeParser parser(path, options.verbose);
  std::string line;
  while (!parser.failed() && pp.c_pre_proc(line) == 0) parser.take(line);
  return std::move(parser).finish(pp.error_count());
}

bool read_native(Store& store, const std::string& path, ui::Ui& ui, ui::LogSink& log,
                 const NativeReadOptions& options) {
  NativeReadResult result = read_native_file(path, options);
  for (const auto& line : result.log) log.log(line);
  for (const auto& box : result.messages) ui::report(ui, log, box.title, box.lines);
  if (!result.ok()) return false;
  log.log("READ NATIVE MODE FILE " + path);
  store.append(std::move(result.set));
  return true;
}

}  // namespace tidemark::data
