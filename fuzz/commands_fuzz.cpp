// Runs arbitrary bytes as typed commands through a real session with every registered
// mode, the graph view, the simulator and the spreadsheet, the way the headless program
// runs `tidemark < input`: every question gets its batch answer and nobody chooses a
// file. Whatever the commands, the run must end without a crash, keep its run files
// and leave every data set well formed.
//
// Each input runs in a fresh copy of a scratch tree made once per process under /tmp:
//   template/data        the working folder, holding a copy of examples/
//   template/data/home   the program folder, whose Monte-Carlo modes have their settings
//                        saved with small cycle counts by a first session (SET and
//                        SAVE_PARAMETERS), so that an input that never sets them stays
//                        fast, and whose grf_view.ini asks for small graphs
// The run files are within reach of the commands ("home/temp/LOG_<id>.log"): their
// names are the same in every run, drawn from a generator with a fixed seed.
//
// The input holds typed commands and files placed in the working folder before the run
// (commands_input.h, which also bounds what one input may do). On top of those bounds,
// the harness bounds the work of the calculations, so that one input stays fast however
// its commands combine:
// - each input has kCalculationBudget of wall time for its calculations. Once it has
//   passed, every calculation's progress answers "cancel", as a user's Cancel button
//   would, so a long fit (SRQuant's local methods run up to 20000 evaluations whatever
//   "Iterations" says), Monte-Carlo run or period scan stops at its next report, and no
//   further calculation starts (it fails with the harness's message); the other
//   commands still run;
// - AutoDecon and Deconv, which report no progress and whose work grows faster than the
//   square of the series length (under the sanitizers about 1.3 s at 48 points,
//   2.2 s at 72 and 15 s at 144), refuse a current data set of more than
//   kMaxDeconPoints points in its crop range; a longer series cropped to that many is
//   deconvolved.
// PATH names an empty folder and VISUAL and EDITOR are unset, so printing and editing
// start no program (symbolized sanitizer reports then need ASAN_SYMBOLIZER_PATH).
// Refused inputs return -1, which keeps them out of libFuzzer's corpus. A run with the
// command words:
//   build-fuzz/bin/commands_fuzz -dict=fuzz/commands_fuzz.dict tests/fixtures/fuzz/commands
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "../app/components.h"
#include "commands_input.h"
#include "shell/mode_loop.h"
#include "shell/run_files.h"
#include "shell/session.h"
#include "ui/console_ui.h"

namespace {

namespace fs = std::filesystem;
using tidemark::shell::Session;

constexpr std::uint64_t kSeed = 12345;
using Clock = std::chrono::steady_clock;
constexpr auto kCalculationBudget = std::chrono::seconds(1);
constexpr int kMaxDeconPoints = 48;

// When the running input's time for calculations ends.
Clock::time_point& budget_end() {
  static Clock::time_point end;
  return end;
}

bool budget_spent() {
  return Clock::now() >= budget_end();
}

void check(bool invariant) {
  if (!invariant) std::abort();
}

std::string first_line(const fs::path& file) {
  std::ifstream in(file);
  std::string line;
  std::getline(in, line);
  return line;
}

// A replacement file left half-way: "." + target + "." + clock + "-" + count + ".tmp".
bool half_written(const std::string& name) {
  static const std::regex pattern(R"(\..+\.[0-9a-f]+-[0-9]+\.tmp)");
  return std::regex_match(name, pattern);
}

// What a run may leave behind: none of the temporary files the kill list names (the
// program's own; a user's file in temp/ is kept whatever its name), the five run files,
// and nowhere a half-written file. `killed` is the kill list read before the deletion.
void check_leftovers(const tidemark::shell::RunFiles& files, const std::vector<fs::path>& killed,
                     const fs::path& work) {
  for (const fs::path& file : killed) check(files.names_run_file(file) || !fs::exists(file));
  for (const fs::path* file : {&files.history_path(), &files.log_path(), &files.answers_path(),
                               &files.graph_path(), &files.kill_path()})
    check(fs::is_regular_file(*file));
  for (const auto& entry : fs::recursive_directory_iterator(work))
    check(!half_written(entry.path().filename().string()));
}

// The headless program's batch answers, with every calculation cancelled at its next
// progress report once the input's budget is spent.
class BudgetedUi : public tidemark::ui::ConsoleUi {
 public:
  BudgetedUi(std::istream& in, std::ostream& out) : ConsoleUi(in, out, out, false) {}

  std::unique_ptr<tidemark::ui::Progress> progress(std::string_view) override {
    return std::make_unique<Deadline>();
  }

 private:
  class Deadline : public tidemark::ui::Progress {
   public:
    bool update(double) override { return !budget_spent(); }
  };
};

// A mode whose calculations start only while the input's budget lasts, and, with
// `max_points` above 0, only on a current data set of at most that many points.
class BoundedModule : public tidemark::shell::Module {
 public:
  BoundedModule(std::unique_ptr<tidemark::shell::Module> mode, int max_points)
      : mode_(std::move(mode)), max_points_(max_points) {}

  const tidemark::ui::Dialog& dialog() const override { return mode_->dialog(); }
  std::string settings_file() const override { return mode_->settings_file(); }
  std::string fix_prefix() const override { return mode_->fix_prefix(); }
  std::string error_box_title() const override { return mode_->error_box_title(); }
  bool handle(std::string_view command, tidemark::shell::ModuleContext& c) override {
    return mode_->handle(command, c);
  }

  tidemark::shell::ModeResult calculate(tidemark::shell::ModuleContext& c) override {
    using tidemark::shell::ModeResult;
    if (budget_spent()) return ModeResult::failed({"fuzz harness: the input's time is spent"});
    if (max_points_ > 0 && !c.store.empty()) {
      const auto& set = c.store.current();
      if (set.last_point() - set.first_point() + 1 > max_points_)
        return ModeResult::failed({"fuzz harness: the series is too long for this mode"});
    }
    return mode_->calculate(c);
  }

 private:
  std::unique_ptr<tidemark::shell::Module> mode_;
  int max_points_;
};

// The program's components, every mode bounded.
tidemark::shell::Components bounded_components() {
  tidemark::shell::Components parts = tidemark::app::registered_components();
  for (std::size_t i = 0; i < parts.modules.size(); ++i) {
    tidemark::shell::ModuleFactory& factory = parts.modules[i];
    if (!factory) continue;
    const bool decon = tidemark::shell::mode_table()[i].prefix == "DECON";  // both modes
    const int max_points = decon ? kMaxDeconPoints : 0;
    factory = [make = std::move(factory), max_points](int variant) {
      return std::make_unique<BoundedModule>(make(variant), max_points);
    };
  }
  return parts;
}

const tidemark::shell::Components& components() {
  static const tidemark::shell::Components parts = bounded_components();
  return parts;
}

// Runs `commands` in a session whose program folder is `home`, from the working folder
// `data`; the store and the files left are checked before the session ends.
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
  budget_end() = Clock::now() + kCalculationBudget;
  BudgetedUi ui(in, nowhere);
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
  // The history and the log are still the run's own, whatever was copied where.
  check(first_line(history).starts_with("! command file created by ") &&
        first_line(log).starts_with("! LOG file created by "));
  const auto killed = session.files().killed();
  session.files().delete_killed();
  check_leftovers(session.files(), killed, data);
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
    const fs::path examples = fs::path(TIDEMARK_SOURCE_DIR) / "examples";
    const fs::path data = root_ / "template" / "data", home = data / "home";
    fs::create_directories(data);
    fs::copy(examples, data, fs::copy_options::recursive);
    run_session(home, data, kSetupCommands);
    const fs::path system = home / "system";
    for (const char* name : {"do_apen.ini", "do_xapen.ini", "do_concord.ini", "do_srquant.ini"})
      check(fs::is_regular_file(system / name));
    std::ofstream(system / "grf_view.ini") << kSmallPage;
    fs::remove_all(home / "temp");
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
    return {run / "data" / "home", run / "data"};
  }

 private:
  static constexpr const char* kSetupCommands =
      "READ_NATIVE \"subject07_lh.dat\"\n"
      "READ_NATIVE \"subject07_testo.dat\"\n"
      "MODE ApEn\nSET MC Cycles = 10\nSAVE_PARAMETERS\n"
      "MODE X_ApEn\nSET MC Cycles = 10\nSAVE_PARAMETERS\n"
      "MODE Concordance\nSET #MC Cycles = 10\nSAVE_PARAMETERS\n"
      "MODE SRQuant\nSET Swarm Size = 10\nSET Iterations = 20\nSAVE_PARAMETERS\n";
  // Graphs are drawn on a small page at the lowest resolution: the drawing code is the
  // same, and large pages are the plot parser target's work.
  static constexpr const char* kSmallPage = "Width=144\nHeight=108\nDpi=36\n";
  fs::path root_;
};

// Puts the working folder back when an input is done: libFuzzer reads and writes its
// corpus by the paths it was given, which may be relative.
class KeepWorkingFolder {
 public:
  KeepWorkingFolder() : folder_(fs::current_path()) {}
  ~KeepWorkingFolder() { fs::current_path(folder_); }
  KeepWorkingFolder(const KeepWorkingFolder&) = delete;
  KeepWorkingFolder& operator=(const KeepWorkingFolder&) = delete;

 private:
  fs::path folder_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto input = tidemark::fuzzing::read_commands_input(
      std::string_view(reinterpret_cast<const char*>(data), size));
  if (!input) return -1;
  const KeepWorkingFolder keep;
  static const Scratch scratch;
  const auto [home, work] = scratch.fresh_run();
  for (const auto& [name, text] : input->files)
    std::ofstream(work / name, std::ios::binary) << text;
  run_session(home, work, input->commands);
  return 0;
}
