#pragma once
// Reading a native-mode data file into the data set store. The file is pulled line by
// line through the source preprocessor (comment character ';'), so that it may hold
// conditional sections, symbols and included files, and parsed by NativeParser.
//
//   NativeReadOptions options{.root_path = home};
//   if (read_native(store, "subject07_lh.dat", ui, log, options)) ...  // appended
#include <string>

#include "data/native_parser.h"
#include "data/store.h"
#include "graphics/preprocessor.h"
#include "ui/ui.h"

namespace tidemark::data {

struct NativeReadOptions {
  // Searched for <name> includes after the folder of the file read.
  std::string root_path;
  // Starts with verbose reading (and the preprocessor's verbose flag) on.
  bool verbose = false;
  // Opens the file and its includes; empty opens files on disk. Tests and the fuzzer
  // serve files from memory.
  graphics::Preprocessor::Opener opener;
};

// Reads `path`. The record's file name is `path` unless the file names itself with
// !FILENAME. A file that cannot be opened fails with the box "ERROR READING DATA FILE":
// "Could Not Read The Data File", "Cannot open " + path.
NativeReadResult read_native_file(const std::string& path, const NativeReadOptions& options = {});

// Reads `path` and appends the record to `store` (making it current) when the read
// succeeds; returns whether it did. Logs the result's log lines, shows its message
// boxes through ui::report (which logs them too) and, on success, logs
// "READ NATIVE MODE FILE " + path. On failure the store is unchanged.
bool read_native(Store& store, const std::string& path, ui::Ui& ui, ui::LogSink& log,
                 const NativeReadOptions& options = {});

}  // namespace tidemark::data
