#pragma once
// The stack of open command files. At most 10 are open at once, nested; each is read on
// its own input unit, the first free one searched upward from unit 8. Lines beginning
// "!" are comments and blank lines are skipped; at the end of a file reading goes on in
// the enclosing file.
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tidemark::shell {

class CommandFiles {
 public:
  static constexpr int kMaxDepth = 10;
  static constexpr int kFirstUnit = 8;
  static constexpr int kUnitsTried = 91;

  // Opens `name` on top of the stack; false, and nothing changes, when the name is
  // blank, names no regular file, the file cannot be opened, no unit is free, or 10
  // files are open already.
  bool open(const std::string& name);

  // The next command of the innermost open file (whole, without its line end); no value
  // when no file is open.
  std::optional<std::string> next();

  // Closes every open file (the program is ending, or the store was reset).
  void close_all() { open_.clear(); }

  int depth() const { return static_cast<int>(open_.size()); }
  // Where the command last returned by next() stands: "run.cmd line 4".
  const std::string& last_position() const { return last_position_; }
  // The input unit of the innermost open file; 0 when none is open.
  int unit() const { return open_.empty() ? 0 : open_.back()->unit; }

 private:
  struct OpenFile {
    std::ifstream in;
    int unit = 0;
    std::string name;
    int line = 0;  // lines read so far
  };
  int free_unit() const;

  std::vector<std::unique_ptr<OpenFile>> open_;
  std::string last_position_;
};

}  // namespace tidemark::shell
