#pragma once
// Runs the real headless program (build/bin/tidemark beside the test program) with a
// fresh TIDEMARK_HOME, a working folder, an argument list and standard input, and keeps
// its exit status and output.
#include <fcntl.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "shell/scratch.h"

namespace tidemark::testing_support {

struct ProgramRun {
  int status = -1;
  std::string out;
  std::string err;
};

inline std::filesystem::path tidemark_binary() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path() / "tidemark";
}

// Child side: the environment, folder and program.
[[noreturn]] inline void exec_tidemark(const std::filesystem::path& home,
                                       const std::filesystem::path& folder,
                                       const std::vector<std::string>& args,
                                       const std::vector<std::string>& env) {
  setenv("TIDEMARK_HOME", home.c_str(), 1);
  unsetenv("COMPUTERNAME");
  for (const std::string& e : env) putenv(const_cast<char*>(e.c_str()));
  if (chdir(folder.c_str()) != 0) _exit(126);
  const std::string binary = tidemark_binary().string();
  std::vector<char*> argv{const_cast<char*>(binary.c_str())};
  for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  execv(argv[0], argv.data());
  _exit(127);
}

inline int exit_status(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

// Standard input from `input`; standard output and error kept.
inline ProgramRun run_tidemark(const std::filesystem::path& home,
                               const std::filesystem::path& folder,
                               const std::vector<std::string>& args, const std::string& input,
                               const std::vector<std::string>& env = {}) {
  Scratch io;
  const auto in = io.write("stdin", input);
  const auto out = io / "stdout";
  const auto err = io / "stderr";
  const pid_t child = fork();
  if (child == 0) {
    const int in_fd = open(in.c_str(), O_RDONLY);
    const int out_fd = open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    const int err_fd = open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    dup2(in_fd, 0);
    dup2(out_fd, 1);
    dup2(err_fd, 2);
    exec_tidemark(home, folder, args, env);
  }
  ProgramRun run;
  run.status = exit_status(child);
  run.out = Scratch::read(out);
  run.err = Scratch::read(err);
  return run;
}

// The run file in the program folder `home` whose name begins with `prefix` ("CMD_" the
// command history, "LOG_" the log, "GRF_" the graph source, ...); empty when none.
inline std::filesystem::path run_file(const std::filesystem::path& home,
                                      const std::string& prefix) {
  for (const auto& entry : std::filesystem::directory_iterator(home / "temp")) {
    if (entry.path().filename().string().starts_with(prefix)) return entry.path();
  }
  return {};
}

inline constexpr int kNoTerminal = -2;

// The program on a terminal: `typed` is typed into it, and everything it wrote to the
// terminal comes back in `out`. The status is kNoTerminal when no terminal can be made.
inline ProgramRun run_tidemark_on_terminal(const std::filesystem::path& home,
                                           const std::filesystem::path& folder,
                                           const std::vector<std::string>& args,
                                           const std::string& typed) {
  int terminal = -1;
  const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) exec_tidemark(home, folder, args, {});
  ProgramRun run;
  if (child < 0) {
    run.status = kNoTerminal;
    return run;
  }
  if (write(terminal, typed.data(), typed.size()) < 0) return run;
  char buffer[4096];
  for (ssize_t n; (n = read(terminal, buffer, sizeof buffer)) > 0;) run.out.append(buffer, n);
  run.status = exit_status(child);
  close(terminal);
  return run;
}

}  // namespace tidemark::testing_support
