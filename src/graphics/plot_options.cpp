#include "graphics/plot_options.h"

#include <fmt/format.h>

#include "core/text.h"

namespace tidemark::graphics {

namespace {

constexpr std::string_view kIfChecked = "#IFCHECKED";
constexpr std::string_view kIfNotChecked = "#IF.NOT.CHECKED";
constexpr std::string_view kEndIf = "#ENDIF";

bool word_is(const Token& t, std::string_view word) {
  return t.kind == Token::Kind::kWord && core::to_upper(t.text) == word;
}

std::string_view default_word(bool checked) {
  return checked ? "CHECKED" : ".NOT.CHECKED";
}

}  // namespace

bool OptionBlocks::is_directive(const std::vector<Token>& tokens) {
  return !tokens.empty() && (word_is(tokens[0], kIfChecked) || word_is(tokens[0], kIfNotChecked) ||
                             word_is(tokens[0], kEndIf));
}

std::string OptionBlocks::directive(const std::vector<Token>& tokens, int line) {
  if (word_is(tokens[0], kIfChecked)) return open_block(tokens, line, true);
  if (word_is(tokens[0], kIfNotChecked)) return open_block(tokens, line, false);
  if (tokens.size() > 1) return fmt::format("#ENDIF: unexpected \"{}\"", tokens[1].text);
  if (open_.empty()) return "#ENDIF without an open #IFCHECKED or #IF.NOT.CHECKED";
  if (!open_.back().holds) --inactive_depth_;
  open_.pop_back();
  return {};
}

std::string OptionBlocks::open_block(const std::vector<Token>& tokens, int line,
                                     bool when_checked) {
  const std::string name = core::to_upper(tokens[0].text);
  if (tokens.size() < 2 || tokens[1].kind != Token::Kind::kText) {
    return fmt::format("{} needs the option's label in double quotes", name);
  }
  const std::string label(core::rtrim(tokens[1].text));
  if (label.empty()) return fmt::format("{}: the option's label is empty", name);
  std::optional<bool> stated;
  if (tokens.size() > 2) {
    if (word_is(tokens[2], "CHECKED")) {
      stated = true;
    } else if (word_is(tokens[2], ".NOT.CHECKED")) {
      stated = false;
    } else {
      return fmt::format("{}: expected CHECKED or .NOT.CHECKED, found \"{}\"", name,
                         tokens[2].text);
    }
  }
  if (tokens.size() > 3) return fmt::format("{}: unexpected \"{}\"", name, tokens[3].text);
  if (static_cast<int>(open_.size()) >= kMaxDepth) {
    return fmt::format("option blocks nested deeper than {}", kMaxDepth);
  }

  auto known = known_.find(label);
  if (known == known_.end()) {
    known = known_.emplace(label, Known{options_.size(), line}).first;
    options_.push_back({label, stated.value_or(true)});
  }
  const PlotOption& option = options_[known->second.index];
  if (stated && *stated != option.default_checked) {
    return fmt::format("option \"{}\" is {} here but {} on line {}", label, default_word(*stated),
                       default_word(option.default_checked), known->second.line);
  }

  const auto state = states_.find(label);
  const bool checked = state != states_.end() ? state->second : option.default_checked;
  const bool holds = checked == when_checked;
  if (!holds) ++inactive_depth_;
  open_.push_back({name, label, line, holds});
  return {};
}

std::string OptionBlocks::unclosed(int& line) const {
  if (open_.empty()) return {};
  const Open& last = open_.back();
  line = last.line;
  return fmt::format("{} \"{}\" still open at the end of the source (#ENDIF missing)",
                     last.directive, last.label);
}

}  // namespace tidemark::graphics
