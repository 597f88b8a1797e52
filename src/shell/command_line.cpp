#include "shell/command_line.h"

#include <array>
#include <string_view>

#include "core/text.h"

namespace tidemark::shell {

namespace {

// A one-shot option: its name, and whether a file or folder follows it (after ":" or as
// the next argument).
struct OneShotOption {
  std::string_view name;
  OneShot action;
  bool takes_argument;
};

// In the order in which they are looked for.
constexpr std::array<OneShotOption, 7> kOneShots{{
    {"--help", OneShot::kUsage, false},
    {"--version", OneShot::kVersion, false},
    {"-EDIT", OneShot::kEdit, true},
    {"-HELP", OneShot::kHelp, false},
    {"-CD", OneShot::kCd, true},
    {"-PRINT", OneShot::kPrint, true},
    {"-SHELL", OneShot::kShell, false},
}};

bool equal_nocase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && core::starts_with_nocase(a, b);
}

std::string_view unquote(std::string_view s) {
  if (s.size() >= 2 && s.front() == '"' && s.back() == '"') return s.substr(1, s.size() - 2);
  return s;
}

// The argument after option `i`: the rest of the same word after "name:" or the next
// word. `used` is the number of words taken, or 0 when args[i] is not the option.
std::string_view option_argument(const std::vector<std::string>& args, std::size_t i,
                                 std::string_view name, bool colon, std::size_t& used) {
  const std::string_view word = unquote(args[i]);
  used = 0;
  if (equal_nocase(word, name)) {
    used = 1;
    if (i + 1 < args.size()) {
      used = 2;
      return args[i + 1];
    }
    return {};
  }
  const std::size_t n = name.size() + (colon ? 1 : 0);
  if (word.size() >= n && core::starts_with_nocase(word, name) && (!colon || word[n - 1] == ':')) {
    used = 1;
    return word.substr(n);
  }
  return {};
}

}  // namespace

CommandLine parse_command_line(const std::vector<std::string>& args) {
  CommandLine line;
  std::vector<bool> taken(args.size(), false);
  for (const OneShotOption& option : kOneShots) {
    for (std::size_t i = 0; i < args.size() && line.one_shot == OneShot::kNone; ++i) {
      std::size_t used = 0;
      std::string_view argument;
      if (option.takes_argument) {
        argument = option_argument(args, i, option.name, true, used);
      } else if (equal_nocase(unquote(args[i]), option.name)) {
        used = 1;
      }
      if (used == 0) continue;
      line.one_shot = option.action;
      line.argument = std::string(core::trim(argument));
    }
  }
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (taken[i]) continue;
    std::size_t used = 0;
    for (std::string_view at : {"-@", "@"}) {
      if (line.command_file) break;
      const std::string_view file = option_argument(args, i, at, false, used);
      if (used > 0) line.command_file = std::string(core::trim(unquote(file)));
    }
    if (used == 0 && !line.on_error) {
      const std::string_view choice = option_argument(args, i, "-ON_ERROR", true, used);
      if (used > 0) line.on_error = std::string(core::trim(choice));
    }
    if (used == 0 && !line.graph_file) {
      const std::string_view file = option_argument(args, i, "-grf_view", false, used);
      if (used > 0) line.graph_file = std::string(core::trim(unquote(file)));
    }
    if (used == 0) {
      if (line.one_shot == OneShot::kNone) line.unknown.push_back(args[i]);
      continue;
    }
    for (std::size_t k = i; k < i + used; ++k) taken[k] = true;
    i += used - 1;
  }
  return line;
}

std::string usage_text() {
  return "usage: tidemark [option]\n"
         "  -@ FILE         run the command file FILE, then read commands from standard input\n"
         "  -EDIT:FILE      open FILE in the text editor ($VISUAL or $EDITOR) and end\n"
         "  -PRINT:FILE     print FILE through lp and end\n"
         "  -CD:FOLDER      make FOLDER the default data folder and end\n"
         "  -SHELL          open $SHELL in the default data folder and end\n"
         "  -HELP           list the help documents (help/commands.txt: the commands) and end\n"
         "  -grf_view FILE  draw a graph source file beside it\n"
         "  -ON_ERROR:STOP  end the run at the first command that fails (exit status 3,\n"
         "                  the message names the command); -ON_ERROR:CONTINUE goes on\n"
         "  --help          show this text and end\n"
         "  --version       show the program's version and end\n"
         "Commands are read from standard input when no command file is given; the\n"
         "program folder is $TIDEMARK_HOME, else $XDG_DATA_HOME/tidemark. At the prompt,\n"
         "HELP lists the commands.\n";
}

}  // namespace tidemark::shell
