#pragma once
// What a user at a terminal (or reading --help) learns about the commands: one line per
// command, and the HELP command that shows them and the documents of the help/ folder.
//
//   HELP               the command list and the documents in help/
//   HELP READ          the command lines that begin with READ
//   HELP commands.txt  the document help/commands.txt
#include <string>
#include <string_view>

#include "shell/session.h"

namespace tidemark::shell {

// The commands, one line each: the command as typed and what it does.
std::string command_summary();

// Writes the command list to help/commands.txt when it is missing or differs, so that
// the help folder always holds it.
void install_help_documents(Session& session);

// HELP [topic]: shows the help asked for (see above); an unknown topic is answered
// "There is no help on <topic>." titled "Help".
void show_help(std::string_view command, Session& session);

}  // namespace tidemark::shell
