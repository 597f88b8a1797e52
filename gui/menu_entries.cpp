#include "menu_entries.h"

#include <array>

namespace tidemark::gui {

namespace {

using A = WindowAction;

constexpr std::array<MenuEntry, 45> kEntries{{
    {"File/Read a Data File/Native Mode", "READ_NATIVE", "Read a native mode data file"},
    {"File/Write a Data File/Native Mode", "WRITE_NATIVE",
     "Write the current data set as a native mode file"},
    {"File/Write a Data File/CSV Mode", "WRITE_CSV",
     "Write the current data set as comma-separated text"},
    {"File/Write Summary Books (csv)", "WRITE_SUMMARY_BOOKS",
     "Write every data set's results as one comma-separated table"},
    {"File/Reset the Program", "RESET", "Empty the data set store"},
    {"File/Change Default Folder (CD)", "CD", "Change the default data folder"},
    {"File/Run a Batch File (@)", "@", "Run a command file"},
    {"File/Queue Batch Jobs", "",
     "Queue one job per data file of a parameter file, from a template (QUEUE_JOBS)",
     A::kQueueJobs},
    {"File/Exit", "EXIT", "End the program"},

    {"Results/Log File/View", "", "Show the log of this run", A::kViewLog},
    {"Results/Log File/Edit", "", "Open the log in the text editor", A::kEditLog},
    {"Results/Log File/Rename", "SAVE_AS_LOG", "Copy the log to a file of your choice"},
    {"Results/Log File/Print", "PRINT_LOG", "Print the log"},
    {"Results/Current Answers/View", "", "Show the answers file", A::kViewAnswers},
    {"Results/Current Answers/Edit", "", "Open the answers in the text editor", A::kEditAnswers},
    {"Results/Current Answers/Rename", "SAVE_AS_BST", "Copy the answers file"},
    {"Results/Current Answers/Print", "PRINT_BST", "Print the answers file"},
    {"Results/Command History/View", "", "Show the commands of this run", A::kViewHistory},
    {"Results/Command History/Edit", "", "Open the command history in the text editor",
     A::kEditHistory},
    {"Results/Command History/Rename", "SAVE_AS_CMD", "Copy the command history"},
    {"Results/Command History/Print", "PRINT_CMD", "Print the command history"},
    {"Results/Current Listing/Rename", "SAVE_AS_LST", "Copy the current mode's listing"},
    {"Results/Current Graph/View", "", "Show the source of the current graph", A::kViewGraph},
    {"Results/Current Graph/Edit", "", "Open the graph source in the text editor",
     A::kEditGraphSource},
    {"Results/Current Graph/Print", "PRINT_GRF", "Print the current graph"},

    {"Graphics/Load a Graphics Source File", "LOAD_GRF", "Load and show a graph source file"},
    {"Graphics/Print Graph", "PRINT_GRF", "Print the current graph"},
    {"Graphics/Print Graph with Dialog", "", "Choose a printer and print the current graph",
     A::kPrintGraph},
    {"Graphics/Edit Source File", "", "Open the graph source in the text editor",
     A::kEditGraphSource},
    {"Graphics/Edit the Initialization file", "", "Open grf_view.ini in the text editor",
     A::kEditGraphSettings},
    {"Graphics/Save As/ASCII (*.grf)", "SAVE_GRF_ASCII", "Save the graph source"},
    {"Graphics/Save As/To Clipboard", "", "Copy the graph to the clipboard", A::kCopyGraph},
    {"Graphics/Save As/PostScript", "SAVE_GRF_PS", "Save the graph as PostScript"},
    {"Graphics/Save As/PCX/BMP/PNG", "SAVE_GRF_PNG", "Save the graph as a PNG bitmap"},
    {"Graphics/Save As/SVG", "SAVE_GRF_SVG", "Save the graph as SVG"},
    {"Graphics/Save As/PDF", "SAVE_GRF_PDF", "Save the graph as PDF"},
    {"Graphics/Next Image", "NEXT_GRAPH", "Show the next graph of this run"},
    {"Graphics/Previous Image", "PREVIOUS_GRAPH", "Show the previous graph of this run"},

    {"Tools/Data SpreadSheet", "SPREADSHEET", "Edit and compute the current data set's columns"},
    {"Tools/Edit an ASCII File", "", "Open a text file in the editor", A::kEditFile},
    {"Tools/Calculator", "", "Start a calculator", A::kCalculator},
    {"Tools/Change Default Folder (CD)", "CD", "Change the default data folder"},
    {"Tools/Run a Batch File (@)", "@", "Run a command file"},

    {"Help/Commands", "", "The command reference", A::kCommands},
    {"Help/About", "", "Version and program folder", A::kAbout},
}};

constexpr std::array<std::string_view, 7> kTitles{
    {"File", "Mode", "Data_Select", "Results", "Graphics", "Tools", "Help"}};

}  // namespace

std::span<const MenuEntry> menu_entries() {
  return kEntries;
}

std::span<const std::string_view> menu_titles() {
  return kTitles;
}

}  // namespace tidemark::gui
