#include "shell/external.h"

#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace tidemark::shell {

namespace {

constexpr int kNotStarted = 127;  // the exit status of a child whose exec failed

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

}  // namespace

ExternalRun run_external(const std::vector<std::string>& argv,
                         const std::filesystem::path& folder) {
  if (argv.empty()) return {};
  std::vector<char*> args;
  for (const auto& a : argv) args.push_back(const_cast<char*>(a.c_str()));
  args.push_back(nullptr);
  const pid_t child = fork();
  if (child < 0) return {};
  if (child == 0) {
    if (!folder.empty() && chdir(folder.c_str()) != 0) _exit(kNotStarted);
    execvp(args[0], args.data());
    _exit(kNotStarted);
  }
  // A signal caught while waiting interrupts the wait, not the child: wait again, or the
  // child would be left running unseen and, once ended, never reaped.
  int wait_status = 0;
  pid_t waited = 0;
  do {
    waited = waitpid(child, &wait_status, 0);
  } while (waited < 0 && errno == EINTR);
  if (waited < 0) return {};
  if (!WIFEXITED(wait_status)) return {true, 128 + WTERMSIG(wait_status)};
  const int status = WEXITSTATUS(wait_status);
  if (status == kNotStarted) return {false, status};
  return {true, status};
}

std::string print_file(const std::filesystem::path& file) {
  const ExternalRun run = run_external({"lp", file.string()});
  if (!run.started) return "No printer is available: the lp command was not found.";
  if (run.status != 0) {
    return fmt::format("The file was not printed: lp ended with status {} (is a printer set up?)",
                       run.status);
  }
  return {};
}

std::string edit_file(const std::filesystem::path& file) {
  std::string editor = environment("VISUAL");
  if (editor.empty()) editor = environment("EDITOR");
  if (editor.empty()) return "No text editor is set: set VISUAL or EDITOR.";
  // Through the shell, so that an editor given with options ("code -w") works.
  const ExternalRun run = run_external({"/bin/sh", "-c", editor + " \"$1\"", "sh", file.string()});
  if (!run.started) return "The text editor could not be started: " + editor;
  if (run.status != 0) return fmt::format("The text editor ended with status {}", run.status);
  return {};
}

std::string open_shell(const std::filesystem::path& folder) {
  std::string shell = environment("SHELL");
  if (shell.empty()) shell = "/bin/sh";
  const ExternalRun run = run_external({shell}, folder);
  if (!run.started) return "The command shell could not be started: " + shell;
  return {};
}

}  // namespace tidemark::shell
