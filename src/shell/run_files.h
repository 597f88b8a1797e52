#pragma once
// The five run files in temp/: command history CMD_<id>.bat, log LOG_<id>.log, answers
// BST_<id>.BST, graph GRF_<id>.grf and kill list KILL_<id>.txt, each with its own fresh
// run identifier. The log and the history are flushed after every line, so that a run
// that dies leaves a history that replays up to that point.
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/random.h"
#include "ui/log_sink.h"

namespace tidemark::shell {

// temp / (prefix + 20 random capital letters + extension): the name of a run file or of
// a module's temporary file ("LIST_", ".lst").
std::filesystem::path temp_file_name(const std::filesystem::path& temp, std::string_view prefix,
                                     std::string_view extension, core::Random& names);

class RunFiles : public ui::LogSink {
 public:
  // Creates the five files and writes their first lines: "! command file created by ",
  // "! LOG file created by " and "! kill file created by ", each followed by
  // `created_by`; the log's second line is "!  running on " + `running_on`. No value,
  // and the reason in `error`, when a file cannot be created.
  static std::unique_ptr<RunFiles> create(const std::filesystem::path& temp, core::Random& names,
                                          std::string_view created_by, std::string_view running_on,
                                          std::string& error);

  // Appends one line to the log.
  void log(std::string_view line) override;
  // Appends one line to the command history.
  void history(std::string_view line);
  // Records a temporary file in the kill list, for deletion when the program ends.
  void kill(const std::filesystem::path& file);
  // The files the kill list names, in the order they were recorded.
  std::vector<std::filesystem::path> killed() const;
  // Deletes every file named in the kill list (those that exist).
  void delete_killed();

  const std::filesystem::path& history_path() const { return history_path_; }
  const std::filesystem::path& log_path() const { return log_path_; }
  const std::filesystem::path& answers_path() const { return answers_path_; }
  const std::filesystem::path& graph_path() const { return graph_path_; }
  const std::filesystem::path& kill_path() const { return kill_path_; }
  // True when `path` names one of the five run files.
  bool names_run_file(const std::filesystem::path& path) const;

 private:
  RunFiles() = default;

  std::filesystem::path history_path_, log_path_, answers_path_, graph_path_, kill_path_;
  std::ofstream history_, log_, kill_;
};

}  // namespace tidemark::shell
