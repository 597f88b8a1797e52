#include "graphics/plot_parser.h"

#include <fmt/format.h>

#include "graphics/plot_builder.h"
#include "graphics/plot_lexer.h"
#include "graphics/plot_statement.h"

namespace tidemark::graphics {

namespace {

PlotParseResult failed(PlotParseStatus status, const OptionBlocks& blocks, int line,
                       std::string_view what) {
  PlotParseResult p;
  p.status = status;
  p.line = line;
  p.message = fmt::format("line {}: {}", line, what);
  p.options = blocks.options();
  return p;
}

// The next line of `source` from `at` without its line ending; advances `at`.
std::string_view next_line(std::string_view source, std::size_t& at) {
  const std::size_t end = std::min(source.find('\n', at), source.size());
  std::string_view line = source.substr(at, end - at);
  at = end + 1;
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

}  // namespace

PlotParseResult parse_plot(std::string_view source, const OptionStates& states) {
  if (source.starts_with("\xEF\xBB\xBF")) source.remove_prefix(3);  // UTF-8 byte order mark
  OptionBlocks blocks(states);
  PlotBuilder builder;
  int number = 0;
  std::size_t at = 0;
  while (at < source.size()) {
    const std::string_view line = next_line(source, at);
    ++number;
    if (line.size() > kMaxSourceLine) {
      return failed(PlotParseStatus::kSyntaxError, blocks, number,
                    fmt::format("line longer than {} characters", kMaxSourceLine));
    }
    LexedLine lexed = lex_line(line);
    if (!lexed.error.empty()) return failed(PlotParseStatus::kSyntaxError, blocks, number, lexed.error);
    if (lexed.tokens.empty()) continue;
    if (OptionBlocks::is_directive(lexed.tokens)) {
      const std::string error = blocks.directive(lexed.tokens, number);
      if (!error.empty()) return failed(PlotParseStatus::kBadOptionBlock, blocks, number, error);
      continue;
    }
    ReadStatement read = read_statement(lexed.tokens);
    if (!read.error.empty()) {
      return failed(PlotParseStatus::kSyntaxError, blocks, number, read.error);
    }
    if (!blocks.active()) continue;
    if (const std::string error = builder.add(std::move(read.statement)); !error.empty()) {
      return failed(PlotParseStatus::kBadStatement, blocks, number, error);
    }
  }
  int open_line = 0;
  if (const std::string error = blocks.unclosed(open_line); !error.empty()) {
    return failed(PlotParseStatus::kBadOptionBlock, blocks, open_line, error);
  }
  if (const std::string error = builder.finish(); !error.empty()) {
    return failed(PlotParseStatus::kBadStatement, blocks, number, error);
  }
  PlotParseResult result;
  result.status = PlotParseStatus::kParsed;
  result.plot = std::move(builder.plot());
  result.options = blocks.options();
  return result;
}

}  // namespace tidemark::graphics
