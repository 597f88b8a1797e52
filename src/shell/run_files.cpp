#include "shell/run_files.h"

#include <system_error>

#include "core/run_id.h"
#include "core/text.h"

namespace tidemark::shell {

namespace fs = std::filesystem;

namespace {

// Kill-list entries whose deletion is conditional carry this mark before the name.
constexpr std::string_view kConditionalMark = "REM IF_KILL_DELETE ";

void write_line(std::ofstream& out, std::string_view line) {
  out << line << '\n';
  out.flush();
}

bool open(std::ofstream& out, const fs::path& path, std::string& error) {
  out.open(path, std::ios::out | std::ios::trunc);
  if (!out) error = "Could not create the run file " + path.string();
  return static_cast<bool>(out);
}

}  // namespace

fs::path temp_file_name(const fs::path& temp, std::string_view prefix, std::string_view extension,
                        core::Random& names) {
  std::string name(prefix);
  name += core::run_identifier(names);
  name += extension;
  return temp / name;
}

std::unique_ptr<RunFiles> RunFiles::create(const fs::path& temp, core::Random& names,
                                           std::string_view created_by, std::string_view running_on,
                                           std::string& error) {
  std::unique_ptr<RunFiles> files(new RunFiles);
  files->history_path_ = temp_file_name(temp, "CMD_", ".bat", names);
  files->log_path_ = temp_file_name(temp, "LOG_", ".log", names);
  files->answers_path_ = temp_file_name(temp, "BST_", ".BST", names);
  files->graph_path_ = temp_file_name(temp, "GRF_", ".grf", names);
  files->kill_path_ = temp_file_name(temp, "KILL_", ".txt", names);
  std::ofstream answers, graph;
  if (!open(files->history_, files->history_path_, error) ||
      !open(files->log_, files->log_path_, error) || !open(answers, files->answers_path_, error) ||
      !open(graph, files->graph_path_, error) || !open(files->kill_, files->kill_path_, error)) {
    return nullptr;
  }
  const std::string tail(created_by);
  write_line(files->history_, "! command file created by " + tail);
  write_line(files->log_, "! LOG file created by " + tail);
  write_line(files->log_, "!  running on " + std::string(running_on));
  write_line(files->kill_, "! kill file created by " + tail);
  return files;
}

void RunFiles::log(std::string_view line) {
  write_line(log_, line);
}

void RunFiles::history(std::string_view line) {
  write_line(history_, line);
}

void RunFiles::kill(const fs::path& file) {
  write_line(kill_, file.string());
}

bool RunFiles::names_run_file(const fs::path& path) const {
  std::error_code ec;
  for (const fs::path* file :
       {&history_path_, &log_path_, &answers_path_, &graph_path_, &kill_path_}) {
    if (fs::equivalent(path, *file, ec)) return true;
  }
  return false;
}

std::vector<fs::path> RunFiles::killed() const {
  std::vector<fs::path> files;
  std::ifstream list(kill_path_);
  std::string line;
  while (std::getline(list, line)) {
    std::string_view name = line;
    if (core::starts_with_nocase(name, kConditionalMark))
      name.remove_prefix(kConditionalMark.size());
    name = core::trim(name);
    if (!name.empty() && name.front() != '!') files.emplace_back(name);
  }
  return files;
}

void RunFiles::delete_killed() {
  for (const fs::path& file : killed()) {
    std::error_code ec;
    fs::remove(file, ec);
  }
}

}  // namespace tidemark::shell
