#include "shell/program.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <random>

#include "shell/command_help.h"
#include "shell/command_line.h"
#include "shell/command_text.h"
#include "shell/folders.h"
#include "shell/mode_loop.h"
#include "shell/one_shot.h"
#include "shell/registry.h"
#include "shell/run_files.h"
#include "shell/session.h"
#include "shell/shared_handler.h"

namespace tidemark::shell {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kSerious = "Serious Error";

// A seed that differs between runs, also between runs started in the same second.
std::uint64_t fresh_seed() {
  std::random_device device;
  return (static_cast<std::uint64_t>(device()) << 20) ^ static_cast<std::uint64_t>(getpid());
}

// registry.ini read, or created on the first start.
Registry load_registry(const fs::path& path, std::vector<std::string>& problems) {
  Registry registry;
  switch (registry.load(path)) {
    case Registry::Load::kUnreadable:
      problems.push_back("Could not open user registry");
      break;
    case Registry::Load::kMissing:
      if (!registry.save(path)) problems.push_back("Could not write user registry");
      break;
    case Registry::Load::kRead:
      break;
  }
  return registry;
}

// Changes to the default data folder of the registry. Without one, the user may choose
// one and make it the default; when nobody can choose, the program stays where it is.
// The folder it is in then is recorded as CD "folder".
void enter_default_folder(Session& session) {
  std::error_code ec;
  std::string folder = session.registry().get(kDefaultFolderKey).value_or("");
  if (folder.empty()) {
    if (auto chosen = session.ui().choose_folder("Select the New Default Folder")) {
      folder = *chosen;
      if (session.ask("CD Question", "Make this folder the default (YES) or (NO)?", false)) {
        session.make_default_folder(folder);
      }
    }
  }
  if (!folder.empty()) {
    fs::current_path(folder, ec);
    if (ec) session.error("CD Error", {"Could not change to the default folder " + folder});
  }
  // The start folder is a command of the history, so that its relative file names mean
  // the same files when it is replayed from another folder.
  const std::string start = fs::current_path(ec).string();
  session.carried_out(command_with_file("CD", start), "!CD to " + start);
}

// The command line's -ON_ERROR, -grf_view (GRF_VIEW: load the graph and draw it beside
// its source), -@ and unknown arguments, after start-up.
void act_on_command_line(const CommandLine& line, Session& session) {
  for (const auto& unknown : line.unknown) {
    session.error("Command Line", {"Unknown option: " + unknown});
  }
  if (line.on_error) handle_shared_command("ON_ERROR " + *line.on_error, session);
  if (line.graph_file)
    handle_shared_command(command_with_file("GRF_VIEW", *line.graph_file), session);
  if (line.command_file) session.run_command_file(*line.command_file);
}

}  // namespace

int run_program(const ProgramInfo& program, const std::vector<std::string>& args, ui::Ui& ui,
                const Components& components) {
  const CommandLine line = parse_command_line(args);
  if (line.one_shot == OneShot::kUsage) {
    ui.show_text("Usage", usage_text() + "\n" + command_summary());
    return kExitOk;
  }
  if (line.one_shot == OneShot::kVersion) {
    ui.show_text("Version", program.name + " " + program.version + "\n");
    return kExitOk;
  }

  const auto home =
      home_folder(std::getenv("TIDEMARK_HOME"), std::getenv("XDG_DATA_HOME"), std::getenv("HOME"));
  if (!home) {
    ui.message(kSerious, {"No program folder: set TIDEMARK_HOME or HOME"});
    return kExitStartupFailed;
  }
  std::string problem;
  const auto folders = prepare_folders(*home, problem);
  core::Random names(fresh_seed());
  std::unique_ptr<RunFiles> files;
  if (folders) {
    files = RunFiles::create(folders->temp, names, created_by(program, stamp_now()),
                             computer_name() + " " + os_description(), problem);
  }
  if (!files) {
    ui.message(kSerious, {problem});
    return kExitStartupFailed;
  }
  std::vector<std::string> registry_problems;
  Registry registry = load_registry(registry_path(*folders), registry_problems);
  Session session(program, *folders, std::move(registry), std::move(files), names, ui,
                  components.modules);
  if (components.graphics) session.set_graphics(components.graphics());
  if (components.simulator) session.set_simulator(components.simulator());
  if (components.spreadsheet) session.set_spreadsheet(components.spreadsheet());
  install_help_documents(session);

  const std::uint64_t seed = fresh_seed() % 2147483647u + 1;
  session.random().seed(seed);
  session.carried_out("SEED " + std::to_string(seed), "SEED " + std::to_string(seed));
  for (const auto& p : registry_problems) session.error(kSerious, {p});
  enter_default_folder(session);

  if (line.one_shot != OneShot::kNone) {
    run_one_shot(line, session);
  } else {
    act_on_command_line(line, session);
    run_mode_loop(session);
    if (session.input_ended()) end_of_input(session);
  }
  session.files().delete_killed();
  if (!session.stop_reason().empty()) return kExitStopped;
  return session.failed() ? kExitCommandFailed : kExitOk;
}

}  // namespace tidemark::shell
