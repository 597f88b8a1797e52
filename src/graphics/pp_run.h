#pragma once
// One run of the preprocessor: the include stack, the symbol table, the conditional
// state and the line loop behind Preprocessor::c_pre_proc.
#include <cstdint>
#include <istream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "graphics/pp_directives.h"
#include "graphics/pp_symbols.h"
#include "graphics/pp_units.h"
#include "graphics/preprocessor.h"

namespace tidemark::graphics::pp {

// Deepest include level; the top-level file is level 1.
inline constexpr std::size_t kMaxIncludeDepth = 20;

// The arguments of c_pre_proc_init.
struct Settings {
  std::string_view file_name;
  std::string_view data_path;
  std::string_view root_path;
  bool verbose = false;
  char comment_char = ';';
};

class Run {
 public:
  // Seeds the predefined symbols and opens `settings.file_name` as level 1 through
  // `opener`, which must outlive the run. A file that cannot be opened leaves level 1
  // without a unit (unit 0), which the first next_line() reports.
  Run(const Preprocessor::Opener& opener, const Settings& settings);

  // The next line for the caller's parser; see Preprocessor::c_pre_proc.
  std::int32_t next_line(std::string& buffer);

  int errors() const { return errors_; }

  // Unit of the file now being read; 0 when there is none.
  int current_unit() const { return levels_.empty() ? 0 : levels_.back().unit; }

 private:
  struct Level {
    int unit = 0;
    long long line = 0;  // lines read so far
    std::string path;
    std::unique_ptr<std::istream> in;
    int depth_at_entry = 0;  // conditional depth when the file was included
  };

  enum class Outcome { kEmit, kConsumed, kError };

  // What to do with one record: emit it (substituted, into `buffer`), consume it, or
  // report it as an error.
  Outcome process(std::string& buffer);
  Outcome skip_nested(Directive directive);
  Outcome conditional(Directive directive);
  bool undefine();
  bool define();
  bool define_from_environment();
  bool include();
  bool set_verbose();

  // Opens `name` (with <name> looked for in the data path, then the root path) and
  // pushes it as a new level with unit `unit`; false when no candidate opens.
  bool push_level(std::string_view name, bool angled, int unit);
  // Closes the file of the innermost level and returns to the including file.
  void pop_level();

  const Preprocessor::Opener* opener_;
  std::string data_path_;
  std::string root_path_;
  bool verbose_;
  char comment_char_;

  std::vector<Level> levels_;
  SymbolTable symbols_;
  UnitPool units_;
  bool active_ = true;
  int conditional_depth_ = 0;
  int skip_depth_ = 0;
  int errors_ = 0;
  std::string record_;  // the line being processed, as read
};

}  // namespace tidemark::graphics::pp
