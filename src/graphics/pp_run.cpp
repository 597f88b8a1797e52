#include "graphics/pp_run.h"

#include <array>
#include <ctime>
#include <filesystem>
#include <utility>

#include "core/text.h"
#include "graphics/pp_environment.h"
#include "graphics/pp_predefined.h"
#include "graphics/pp_record.h"
#include "graphics/pp_substitute.h"
#include "graphics/pp_tokens.h"

namespace tidemark::graphics::pp {

namespace {

std::string_view argument(std::string_view text) {
  return core::rtrim(text.substr(0, core::kLineLength));
}

std::tm local_now() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return local;
}

// `buffer` = `comment_char` + `prefix` + `line`, cut to the line length, trailing
// blanks removed: a line the caller's parser takes for a comment.
void as_comment(std::string& buffer, char comment_char, std::string_view prefix,
                std::string_view line) {
  buffer.assign(1, comment_char);
  buffer.append(prefix);
  buffer.append(line);
  if (buffer.size() > core::kLineLength) buffer.resize(core::kLineLength);
  buffer.resize(core::rtrim(buffer).size());
}

}  // namespace

Run::Run(const Preprocessor::Opener& opener, const Settings& settings)
    : opener_(&opener),
      data_path_(argument(settings.data_path)),
      root_path_(argument(settings.root_path)),
      verbose_(settings.verbose),
      comment_char_(settings.comment_char) {
  std::error_code error;
  const std::string current_path = std::filesystem::current_path(error).string();
  const std::string_view file = argument(settings.file_name);
  add_predefined(symbols_,
                 Environment{file, argument(current_path), data_path_, root_path_, local_now()});
  levels_.reserve(kMaxIncludeDepth);
  const int unit = units_.acquire();
  if (!push_level(file, false, unit)) {
    units_.release(unit);
    levels_.push_back(Level{0, 0, std::string(file), nullptr, 0});
  }
  record_.reserve(core::kLineLength);
}

std::int32_t Run::next_line(std::string& buffer) {
  for (;;) {
    if (levels_.empty()) {
      buffer.clear();
      return 1;
    }
    Level& level = levels_.back();
    if (level.unit < 1) {
      buffer.assign("c_pre_proc: bad input unit");
      ++errors_;
      return 1;
    }
    if (!read_record(*level.in, record_)) {
      pop_level();
      continue;
    }
    char field[24];
    symbols_.set_value(kLineRow, line_field(++level.line, field));
    switch (process(buffer)) {
      case Outcome::kEmit:
        return 0;
      case Outcome::kError:
        as_comment(buffer, comment_char_, "pp error: ", record_);
        ++errors_;
        return 0;
      case Outcome::kConsumed:
        if (verbose_) {
          as_comment(buffer, comment_char_, "", record_);
          return 0;
        }
        break;
    }
  }
}

Run::Outcome Run::process(std::string& buffer) {
  const Directive directive = classify(record_);
  if (skip_depth_ > 0) return skip_nested(directive);
  if (directive == Directive::kElse || directive == Directive::kEndif) {
    if (conditional_depth_ == 0) return Outcome::kError;
    if (directive == Directive::kElse) {
      active_ = !active_;
    } else {
      --conditional_depth_;
      active_ = true;
    }
    return Outcome::kConsumed;
  }
  if (is_conditional(directive)) return conditional(directive);
  if (!active_) return Outcome::kConsumed;
  if (directive == Directive::kNone) {
    buffer.assign(record_);
    if (!substitute(buffer, symbols_)) return Outcome::kError;
    buffer.resize(core::rtrim(buffer).size());
    return Outcome::kEmit;
  }
  using Handler = bool (Run::*)();
  static constexpr std::array<std::pair<Directive, Handler>, 5> kHandlers{{
      {Directive::kUndef, &Run::undefine},
      {Directive::kDefine, &Run::define},
      {Directive::kEnviron, &Run::define_from_environment},
      {Directive::kInclude, &Run::include},
      {Directive::kVerbose, &Run::set_verbose},
  }};
  for (const auto& [word, handler] : kHandlers) {
    if (word == directive) return (this->*handler)() ? Outcome::kConsumed : Outcome::kError;
  }
  return Outcome::kError;  // an unknown directive
}

// Inside a block nested in an inactive block only the nesting is followed.
Run::Outcome Run::skip_nested(Directive directive) {
  if (directive == Directive::kEndif) {
    --skip_depth_;
  } else if (opens_skipped_block(record_)) {
    ++skip_depth_;
  }
  return Outcome::kConsumed;
}

Run::Outcome Run::conditional(Directive directive) {
  if (!active_) {
    ++skip_depth_;
    return Outcome::kConsumed;
  }
  const std::string_view name = TokenReader(record_).next().text;
  bool result = false;
  switch (directive) {
    case Directive::kIfdef:
      result = symbols_.find(name) >= 0;
      break;
    case Directive::kIfndef:
      result = symbols_.find(name) < 0;
      break;
    case Directive::kIfenvir:
      result = !environment_value(name).empty();
      break;
    default:  // kIfnenvir
      result = environment_value(name).empty();
      break;
  }
  active_ = result;
  ++conditional_depth_;
  return Outcome::kConsumed;
}

}  // namespace tidemark::graphics::pp
