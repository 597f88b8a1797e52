// The include stack: #include, and the return to the including file at its end.
#include <algorithm>
#include <array>

#include "graphics/pp_predefined.h"
#include "graphics/pp_run.h"
#include "graphics/pp_tokens.h"

namespace tidemark::graphics::pp {

namespace {

// `directory` + "/" + `name`; the separator is not doubled.
std::string join(std::string_view directory, std::string_view name) {
  std::string path(directory);
  if (!path.ends_with('/')) path.push_back('/');
  path.append(name);
  return path;
}

}  // namespace

// #include FILE: opens FILE as the next level, at most kMaxIncludeDepth deep.
bool Run::include() {
  if (levels_.size() >= kMaxIncludeDepth) return false;
  const Token token = TokenReader(record_).next();
  const int unit = units_.acquire();
  if (unit == 0) return false;
  if (push_level(token.text, token.kind == TokenKind::kAngled, unit)) return true;
  units_.release(unit);
  return false;
}

bool Run::push_level(std::string_view name, bool angled, int unit) {
  if (name.empty()) return false;
  std::array<std::string, 2> candidates;
  std::size_t count = 0;
  if (!angled) {
    candidates[count++] = std::string(name);
  } else {
    for (const std::string* directory : {&data_path_, &root_path_}) {
      if (!directory->empty()) candidates[count++] = join(*directory, name);
    }
  }
  for (std::size_t i = 0; i < count; ++i) {
    std::unique_ptr<std::istream> in = (*opener_)(candidates[i]);
    if (!in) continue;
    symbols_.set_value(kFileRow, candidates[i]);
    levels_.push_back(Level{unit, 0, std::move(candidates[i]), std::move(in), conditional_depth_});
    return true;
  }
  return false;
}

// Blocks that the included file left open end with it: the including file goes on in
// the active state it had at its #include, with the blocks it had open then (less any
// the included file closed).
void Run::pop_level() {
  const Level& done = levels_.back();
  units_.release(done.unit);
  const int depth_at_entry = done.depth_at_entry;
  levels_.pop_back();
  if (levels_.empty()) return;
  active_ = true;
  skip_depth_ = 0;
  conditional_depth_ = std::min(conditional_depth_, depth_at_entry);
  symbols_.set_value(kFileRow, levels_.back().path);
}

}  // namespace tidemark::graphics::pp
