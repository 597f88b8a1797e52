#include "shell/command_help.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "core/file_replace.h"
#include "core/text.h"
#include "shell/command_text.h"
#include "shell/file_ops.h"

namespace tidemark::shell {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kCommandsDocument = "commands.txt";

// The documents of the help folder, sorted by name.
std::vector<std::string> help_documents(const fs::path& folder) {
  std::vector<std::string> names;
  std::error_code ec;
  for (const auto& entry : fs::directory_iterator(folder, ec)) {
    if (entry.is_regular_file(ec)) names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

// The lines of the command list whose command begins with `topic` (letter case ignored).
std::string commands_on(std::string_view topic) {
  std::istringstream lines(command_summary());
  std::string found;
  for (std::string line; std::getline(lines, line);) {
    if (core::starts_with_nocase(core::trim(line), topic)) found += line + "\n";
  }
  return found;
}

}  // namespace

std::string command_summary() {
  return "Commands (letter case never matters; a file name is written in double quotes):\n"
         "  READ_NATIVE \"file\"        read a native-mode data file; it becomes current\n"
         "  WRITE_NATIVE \"file\"       write the current data set as a native-mode file\n"
         "  WRITE_CSV \"file\"          write the current data set as comma-separated text\n"
         "  WRITE_SUMMARY_BOOKS \"f\"   write every data set's kept results as one table\n"
         "  SELECT name               make the data set with this handle or file current\n"
         "  RESET                     empty the data set store\n"
         "  MODE name                 choose the analysis: ApEn, AutoDecon, Cluster8,\n"
         "                            Concordance, Correlation, Cosine, Deconv, Gold_Method,\n"
         "                            Periodic, Pulse, Pulse2, Pulse4, SRQuant, X_ApEn\n"
         "  DIALOG                    show the mode's dialog: fields, values, buttons\n"
         "  SET label = value         set a field of the mode's dialog\n"
         "  SAVE_PARAMETERS           keep the dialog's values as the mode's defaults\n"
         "  <PREFIX>_CALCULATE        run the mode's calculation (CLUSTER_CALCULATE, ...)\n"
         "  <PREFIX>_VIEW             show the mode's listing\n"
         "  <PREFIX>_PRINT            print the mode's listing\n"
         "  STORE_RESULTS             keep the current results aside\n"
         "  RECALL_RESULTS            bring the kept results back\n"
         "  COPY_LST \"file\"           copy the mode's listing (also SAVE_AS_LST)\n"
         "  SEED n                    seed the random generator\n"
         "  CD \"folder\"               change the working folder\n"
         "  @ \"file\"                  run a command file\n"
         "  ON_ERROR STOP             end the run at the first command that fails\n"
         "  ON_ERROR CONTINUE         go on after a failed command (the default)\n"
         "  COPY_LOG \"file\"           copy the log (also SAVE_AS_LOG, PRINT_LOG)\n"
         "  COPY_BST \"file\"           copy the answers (also SAVE_AS_BST, PRINT_BST)\n"
         "  COPY_CMD \"file\"           copy the command history (also SAVE_AS_CMD, PRINT_CMD)\n"
         "  COPY_GRF \"file\"           copy the graph source (also SAVE_GRF_ASCII)\n"
         "  SAVE_GRF_PNG \"file\"       draw the graph to PNG (also _SVG, _PDF, _PS)\n"
         "  LOAD_GRF \"file\"           load and draw a graph source file\n"
         "  NEXT_GRAPH                show the next graph (PREVIOUS_GRAPH the one before)\n"
         "  GRF_OPTION \"label\" ON     switch a graph option (OFF to clear it)\n"
         "  PRINT_GRF                 print the graph\n"
         "  SPREADSHEET               open the data spreadsheet on the current data set\n"
         "  SPREADSHEET_FUNCTION= Y = formula   compute a column\n"
         "  SPREADSHEET_UPDATE        write the spreadsheet back into the data set\n"
         "  SPREADSHEET_FINISH        close the spreadsheet (also _AVERAGE, _SELECT, _CROP,\n"
         "                            _SHUFFLE, _CORRUPT)\n"
         "  SIMULATE KEY=VALUE ...    make a data set from the secretion model\n"
         "  HELP [topic]              this list; HELP READ the commands that begin with\n"
         "                            READ; HELP file a document of the help folder\n"
         "  EXIT                      end the program (also the end of the input)\n";
}

void install_help_documents(Session& session) {
  const fs::path target = session.folders().help / std::string(kCommandsDocument);
  std::string present;
  const std::string wanted = command_summary();
  if (read_file(target, present) && present == wanted) return;
  const auto written = core::replace_file(target, wanted);
  if (!written.ok()) session.files().log("Help: " + written.message);
}

void show_help(std::string_view command, Session& session) {
  const std::string topic = command_argument(command, "HELP");
  const fs::path& folder = session.folders().help;
  if (topic.empty()) {
    std::string text = command_summary() + "Documents in " + folder.string() + ":\n";
    for (const std::string& name : help_documents(folder)) text += "  " + name + "\n";
    session.ui().show_text("Help", text);
  } else {
    std::string text;
    const fs::path document = folder / topic;
    if (topic.find('/') != std::string::npos || !read_file(document, text)) {
      text = commands_on(topic);
    }
    if (text.empty()) return session.error("Help", {"There is no help on " + topic + "."});
    session.ui().show_text("Help", text);
  }
  session.carried_out(core::trim(command), {});
}

}  // namespace tidemark::shell
