// Runs arbitrary bytes as typed commands through a real session with every registered
// mode, the graph view, the simulator and the spreadsheet, the way the headless program
// runs `tidemark < input`: every question gets its batch answer and nobody chooses a
// file. Whatever the commands, the run must end without a crash, keep its run files
// and leave every data set well formed.
//
// Each input runs in a fresh copy of a scratch tree made once per process under /tmp:
//   template/home   the program folder, whose Monte-Carlo modes have their settings
//                   saved with small cycle counts by a first session (SET and
//                   SAVE_PARAMETERS), so that an input that never sets them stays fast,
//                   and whose grf_view.ini asks for small graphs
//   template/data   the working folder, holding a copy of examples/
//
// Bounds on one input, so that it stays fast and cannot reach beyond the scratch tree:
// - only its first kMaxCommands lines are run;
// - an input with a "SET ... Cycles = n" line (the cycle counts of ApEn, X_ApEn and
//   Concordance) whose n reads as a whole number above kMaxCycles is refused;
// - an input with ".." or with a "/" after anything but a name character or ")" is refused, so
//   every file it names lies inside the working folder;
// - PATH names an empty folder and VISUAL and EDITOR are unset, so printing and editing
//   start no program (symbolized sanitizer reports then need ASAN_SYMBOLIZER_PATH).
// Refused inputs return -1, which keeps them out of libFuzzer's corpus.
#include <unistd.h>

#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

#include "../app/components.h"
#include "core/fortran_read.h"
#include "core/text.h"
#include "shell/command_text.h"
#include "shell/mode_loop.h"
#include "shell/run_files.h"
#include "shell/session.h"
#include "shell/settings_file.h"
#include "ui/console_ui.h"

namespace {

namespace fs = std::filesystem;
using tidemark::shell::Session;

constexpr std::size_t kMaxCommands = 64;
constexpr int kMaxCycles = 50;
constexpr std::uint64_t kSeed = 12345;

void check(bool invariant) {
  if (!invariant) std::abort();
}

// A character after which a "/" continues a relative path (or divides, in a formula).
bool name_character(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '-' || c == '.' ||
         c == ')';
}

// True when every path the line can name stays below the working folder.
bool stays_inside(std::string_view line) {
  if (line.find("..") != std::string_view::npos) return false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '/' && (i == 0 || !name_character(line[i - 1]))) return false;
  }
  return true;
}

// False for a SET of a cycle count above kMaxCycles; the label and value are read as the
// module frame reads them.
bool cycles_bounded(std::string_view line) {
  if (!tidemark::shell::command_is(line, "SET")) return true;
  const auto assignment =
      tidemark::shell::split_assignment(tidemark::shell::command_argument(line, "SET"));
  if (!assignment) return true;
  if (tidemark::core::to_upper(assignment->label).find("CYCLES") == std::string::npos) return true;
  int cycles = 0;
  return !tidemark::core::read_integer(assignment->value, cycles) || cycles <= kMaxCycles;
}

// The first kMaxCommands lines of the input, or no value when a line is refused.
std::optional<std::string> bounded_commands(std::string_view input) {
  std::string kept;
  for (std::size_t lines = 0; lines < kMaxCommands && !input.empty(); ++lines) {
    const std::size_t end = input.find('\n');
    const std::string_view line = input.substr(0, end);
    if (!stays_inside(line) || !cycles_bounded(line)) return std::nullopt;
    kept.append(line).push_back('\n');
    input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
  }
  return kept;
}

const tidemark::shell::Components& components() {
  static const tidemark::shell::Components parts = tidemark::app::registered_components();
  return parts;
}

// Runs `commands` in a session whose program folder is `home`, from the working folder
// `data`; the store is checked before the session ends.
void run_session(const fs::path& home, const fs::path& data, const std::string& commands) {
  fs::current_path(data);
  std::string problem;
  const auto folders = tidemark::shell::prepare_folders(home, problem);
  check(folders.has_value());
  tidemark::core::Random names(kSeed);
  auto files =
      tidemark::shell::RunFiles::create(folders->temp, names, "Tidemark fuzz", "fuzz", problem);
  check(files != nullptr);
  const fs::path history = files->history_path(), log = files->log_path();

  std::istringstream in(commands);
  static std::ostream nowhere(nullptr);  // listings and messages are not kept
  tidemark::ui::ConsoleUi ui(in, nowhere, nowhere, false);
  Session session({"Tidemark", "fuzz"}, *folders, tidemark::shell::Registry{}, std::move(files),
                  names, ui, components().modules);
  session.set_graphics(components().graphics());
  session.set_simulator(components().simulator());
  session.set_spreadsheet(components().spreadsheet());
  session.random().seed(kSeed);
  tidemark::shell::run_mode_loop(session);

  const auto& store = session.store();
  for (int i = 0; i < store.count(); ++i) {
    const auto& set = store.at(i);
    for (const auto& column : set.columns) check(int(column.size()) == set.size());
  }
  check(fs::is_regular_file(history) && fs::is_regular_file(log));
  session.files().delete_killed();
}

// The scratch tree of this process, made on the first input and removed at exit.
class Scratch {
 public:
  Scratch()
      : root_(fs::temp_directory_path() / ("tidemark_commands_fuzz_" + std::to_string(getpid()))) {
    fs::remove_all(root_);
    fs::create_directories(root_ / "no_programs");
    setenv("PATH", (root_ / "no_programs").c_str(), 1);
    unsetenv("VISUAL");
    unsetenv("EDITOR");
    const fs::path examples = fs::path(__FILE__).parent_path().parent_path() / "examples";
    fs::create_directories(root_ / "template" / "data");
    fs::copy(examples, root_ / "template" / "data", fs::copy_options::recursive);
    run_session(root_ / "template" / "home", root_ / "template" / "data", kSetupCommands);
    const fs::path system = root_ / "template" / "home" / "system";
    for (const char* name : {"do_apen.ini", "do_xapen.ini", "do_concord.ini"})
      check(fs::is_regular_file(system / name));
    std::ofstream(system / "grf_view.ini") << kSmallPage;
    fs::remove_all(root_ / "template" / "home" / "temp");
  }
  ~Scratch() {
    std::error_code ec;
    fs::current_path(fs::temp_directory_path(), ec);
    fs::remove_all(root_, ec);
  }

  // A fresh copy of the template: the program folder and the working folder.
  std::pair<fs::path, fs::path> fresh_run() const {
    const fs::path run = root_ / "run";
    fs::current_path(root_);
    fs::remove_all(run);
    fs::copy(root_ / "template", run, fs::copy_options::recursive);
    return {run / "home", run / "data"};
  }

 private:
  static constexpr const char* kSetupCommands =
      "READ_NATIVE \"subject07_lh.dat\"\n"
      "READ_NATIVE \"subject07_testo.dat\"\n"
      "MODE ApEn\nSET MC Cycles = 10\nSAVE_PARAMETERS\n"
      "MODE X_ApEn\nSET MC Cycles = 10\nSAVE_PARAMETERS\n"
      "MODE Concordance\nSET #MC Cycles = 10\nSAVE_PARAMETERS\n";
  // Graphs are drawn on a small page at the lowest resolution: the drawing code is the
  // same, and large pages are the plot parser target's work.
  static constexpr const char* kSmallPage = "Width=144\nHeight=108\nDpi=36\n";
  fs::path root_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto commands =
      bounded_commands(std::string_view(reinterpret_cast<const char*>(data), size));
  if (!commands) return -1;
  static const Scratch scratch;
  const auto [home, work] = scratch.fresh_run();
  run_session(home, work, *commands);
  return 0;
}
