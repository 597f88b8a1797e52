#pragma once
// The text of a command: an upper-case name, optionally a blank and an argument; a file
// or folder argument is written in double quotes (COPY_LOG "runs/today.log").
//
//   command_is("copy_log \"a.log\"", "COPY_LOG")        ->  true
//   command_argument("COPY_LOG \"my file.log\"", "COPY_LOG")  ->  "my file.log"
//   command_with_file("READ_NATIVE", "lh.dat")           ->  "READ_NATIVE \"lh.dat\""
#include <optional>
#include <string>
#include <string_view>

namespace tidemark::shell {

// True when the command's leading characters equal `name` over the name's full length,
// both taken in upper case (so "Read_Native" is READ_NATIVE, and so is "READ_NATIVEX").
bool command_is(std::string_view command, std::string_view name);

// The argument after the name `name`: the text inside the first pair of double quotes
// when there is one, else the rest of the command without surrounding blanks.
std::string command_argument(std::string_view command, std::string_view name);

// The command a line of a command file (or of typed input) holds: the line without
// surrounding blanks and its line end, whole (the session refuses one longer than a
// command line of 1024 characters); no value for a blank line or a comment line (one
// that begins with "!").
std::optional<std::string> command_of_line(std::string_view line);

// name + " \"" + file + "\"": a command as the history records it.
std::string command_with_file(std::string_view name, std::string_view file);

}  // namespace tidemark::shell
