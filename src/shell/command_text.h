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
#include <vector>

namespace tidemark::shell {

// True when the command's leading characters equal `name` over the name's full length,
// both taken in upper case (so "Read_Native" is READ_NATIVE, and so is "READ_NATIVEX").
bool command_is(std::string_view command, std::string_view name);

// The argument after the name `name`: the text inside double quotes when there is one
// (up to the first double quote that a blank or the end of the command follows, so that a
// quoted name may itself hold double quotes), else the rest of the command without
// surrounding blanks.
std::string command_argument(std::string_view command, std::string_view name);

// What follows a quoted argument (READ_CSV "f.csv" TIME=min -> "TIME=min"); empty when
// the argument is not quoted or nothing follows it.
std::string text_after_argument(std::string_view command, std::string_view name);

// Every argument in double quotes, in order (QUEUE_JOBS "a.tpl" "b.par" -> a.tpl, b.par),
// each closed as command_argument closes it.
std::vector<std::string> quoted_arguments(std::string_view command, std::string_view name);

// The command a line of a command file (or of typed input) holds: the line without
// surrounding blanks and its line end, whole (the session refuses one longer than a
// command line of 1024 characters); no value for a blank line or a comment line (one
// that begins with "!").
std::optional<std::string> command_of_line(std::string_view line);

// name + " \"" + file + "\"": a command as the history records it.
std::string command_with_file(std::string_view name, std::string_view file);

}  // namespace tidemark::shell
