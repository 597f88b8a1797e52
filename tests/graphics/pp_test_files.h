#pragma once
// In-memory files served to the preprocessor through its Opener, and a helper that
// reads a run to its end.
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "graphics/preprocessor.h"

namespace tidemark::graphics::testing {

struct MemoryFiles {
  std::map<std::string, std::string> files;
  std::vector<std::string> opened;  // paths asked for, in order
  int closed = 0;                   // streams destroyed

  Preprocessor::Opener opener() {
    return [this](const std::string& path) -> std::unique_ptr<std::istream> {
      opened.push_back(path);
      const auto found = files.find(path);
      if (found == files.end()) return nullptr;
      return std::make_unique<CountedStream>(found->second, closed);
    };
  }

 private:
  struct CountedStream : std::istringstream {
    CountedStream(const std::string& text, int& counter) : std::istringstream(text), c(counter) {}
    ~CountedStream() override { ++c; }
    int& c;
  };
};

struct Output {
  std::vector<std::string> lines;  // every line returned with status 0
  std::string last;                // the buffer returned with status 1
  int errors = 0;
};

// Reads `pp` until it returns 1 (at most 10000 lines, so that a fault cannot hang).
inline Output read_all(Preprocessor& pp) {
  Output out;
  std::string buffer;
  for (int i = 0; i < 10000 && pp.c_pre_proc(buffer) == 0; ++i) out.lines.push_back(buffer);
  out.last = buffer;
  out.errors = pp.error_count();
  return out;
}

// Runs the file `top` of `files` with data path "data", root path "root" and ';'.
inline Output run(MemoryFiles& files, const std::string& top = "top", bool verbose = false) {
  Preprocessor pp(files.opener());
  pp.c_pre_proc_init(top, "data", "root", verbose, ';');
  return read_all(pp);
}

}  // namespace tidemark::graphics::testing
