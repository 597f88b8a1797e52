#pragma once
// c_pre_proc: a line-oriented preprocessor between a text file and the reader that
// parses it. It handles conditional sections (#ifdef, #ifndef, #ifenvir, #ifnenvir,
// #else, #endif), symbols (#define, #undef, #environ), included files (#include, 20
// levels), #verbose on/off, and substitutes symbols into ordinary lines. It knows
// nothing of the syntax of the file it feeds.
//
//   graphics::Preprocessor pp;
//   pp.c_pre_proc_init("series.dat", data_dir, root_dir, false, ';');
//   std::string line;
//   while (pp.c_pre_proc(line) == 0) parse(line);
#include <cstdint>
#include <functional>
#include <istream>
#include <memory>
#include <string>
#include <string_view>

namespace tidemark::graphics {

class Preprocessor {
 public:
  // Opens a file for reading by path; returns null when it cannot be opened. The
  // default opens files on disk; tests and fuzzers may serve files from memory.
  using Opener = std::function<std::unique_ptr<std::istream>(const std::string& path)>;

  Preprocessor();
  explicit Preprocessor(Opener opener);
  ~Preprocessor();
  Preprocessor(const Preprocessor&) = delete;
  Preprocessor& operator=(const Preprocessor&) = delete;

  // Shuts down any earlier run, seeds the ten predefined symbols and opens
  // `file_name` as include level 1. `data_path` and `root_path` are where <name>
  // includes are looked for, in that order. `comment_char` prefixes error and
  // verbose lines so that the caller's parser skips them.
  void c_pre_proc_init(std::string_view file_name, std::string_view data_path,
                       std::string_view root_path, bool verbose, char comment_char);

  // Fills `buffer` with the next line to parse and returns 0; returns 1 at the end of
  // the top-level file (buffer empty) and in the fatal states. Lines never exceed
  // 1024 characters; trailing blanks are not kept.
  std::int32_t c_pre_proc(std::string& buffer);

  // Number of preprocessing errors reported since c_pre_proc_init.
  int error_count() const;

  // Input unit of the file now being read: the lowest unit from 8 upwards that was
  // free when the file was opened; 0 when no file is open.
  int current_unit() const;

 private:
  struct State;
  Opener opener_;
  std::unique_ptr<State> state_;
};

}  // namespace tidemark::graphics
