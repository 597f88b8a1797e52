#pragma once
// The entries of the main window's fixed menus (File, Results, Graphics, Tools, Help),
// each with the command it issues and the hint the status bar shows. The Mode and
// Data_Select menus are built from the mode table and the data sets loaded.
//
// An entry without a command is an action of the windows alone (a viewer, the editor,
// the print dialog): it changes nothing the command history needs to replay.
#include <span>
#include <string_view>

namespace tidemark::gui {

enum class WindowAction {
  kNone,            // the entry issues its command
  kViewLog,         // the run files in the viewer
  kViewAnswers,
  kViewHistory,
  kViewGraph,       // the current graph's source
  kEditLog,         // a run file in the desktop's text editor
  kEditAnswers,
  kEditHistory,
  kEditGraphSource,
  kEditGraphSettings,
  kEditFile,        // a file the user chooses, in the editor
  kPrintGraph,      // the graph through the print dialog
  kCopyGraph,       // the graph to the clipboard
  kCalculator,
  kAbout,
  kCommands,        // the command reference
  kQueueJobs,       // the queue dialog, whose Queue button issues QUEUE_JOBS
};

struct MenuEntry {
  std::string_view path;     // "File/Read a Data File/Native Mode"
  std::string_view command;  // "READ_NATIVE"; empty for a window action
  std::string_view hint;
  WindowAction action = WindowAction::kNone;
};

std::span<const MenuEntry> menu_entries();

// The top-level menus in the menu bar's order.
std::span<const std::string_view> menu_titles();

}  // namespace tidemark::gui
