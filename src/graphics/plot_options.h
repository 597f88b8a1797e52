#pragma once
// The option blocks of a graph source: "#IFCHECKED "label" [default]",
// "#IF.NOT.CHECKED "label" [default]" and "#ENDIF". Each distinct label is one check box
// of the graph view; its default is stated on the option's first #IF line (CHECKED when
// not stated there), and a later line may repeat it but not contradict it.
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "graphics/plot_lexer.h"

namespace tidemark::graphics {

// A check box of the graph view and its default state.
struct PlotOption {
  std::string label{};
  bool default_checked = true;
  bool operator==(const PlotOption&) const = default;
};

// The states the user has set (GRF_OPTION), by label; an option not named here takes
// the default its source states.
using OptionStates = std::map<std::string, bool, std::less<>>;

// Follows the option blocks line by line and says whether the current line is drawn.
class OptionBlocks {
 public:
  static constexpr int kMaxDepth = 32;

  explicit OptionBlocks(const OptionStates& states) : states_(states) {}

  // True when the line's first word is one of the three directives.
  static bool is_directive(const std::vector<Token>& tokens);

  // Takes a directive line (`line` is its number); returns an error message, empty
  // when the line is good.
  std::string directive(const std::vector<Token>& tokens, int line);

  // True when every open block's test holds, so the lines now read are drawn.
  bool active() const { return inactive_depth_ == 0; }

  // After the last line: the error for a block still open, else empty; `line` is set
  // to the number of the line that opened it.
  std::string unclosed(int& line) const;

  // The options in the order of their first appearance.
  const std::vector<PlotOption>& options() const { return options_; }

 private:
  struct Open {
    std::string directive;
    std::string label;
    int line = 0;
    bool holds = true;
  };
  struct Known {
    std::size_t index = 0;
    int line = 0;
  };

  std::string open_block(const std::vector<Token>& tokens, int line, bool when_checked);

  const OptionStates& states_;
  std::vector<PlotOption> options_;
  std::map<std::string, Known, std::less<>> known_;
  std::vector<Open> open_;
  int inactive_depth_ = 0;  // open blocks whose test fails
};

}  // namespace tidemark::graphics
