#pragma once
// The interface through which the program reaches its user: message boxes, questions,
// file and folder choosers, dialogs with typed fields, the text viewer, the graph view,
// progress with cancel, and the next command. The headless program implements it on the
// console; the desktop program with real windows. Every member but `message` has a
// default for a user who cannot be asked: no answer, no choice, nothing shown.
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/dialog.h"
#include "ui/log_sink.h"

namespace tidemark::ui {

// A request for a file name: the chooser's title and filter ("Batch Files
// (*.bat)|*.bat|All Files (*.*)|*.*|"), the name offered, and whether the file is to be
// written (a save chooser) or read (an open chooser).
struct FileRequest {
  std::string title;
  std::string filter;
  std::string default_name;
  bool for_writing = false;
};

// What a window shows of the program's state between commands: the data sets loaded
// (their handles, file names and whether they changed since they were written), the
// current one, the mode chosen, and the run files a viewer may open.
struct SessionView {
  struct DataSet {
    std::string handle;
    std::string file_name;
    bool modified = false;
  };
  std::vector<DataSet> data_sets;
  int current = -1;  // index into data_sets; -1 when none is loaded
  std::string mode;  // the mode's menu name; empty before any choice
  std::string history, log, answers, graph;
};

// Progress of long work. `update` takes the fraction done in [0, 1] and answers false
// when the user asked to cancel.
//
// `update` is called on the thread that runs the calculation, about every 50 ms while
// core::parallel_for works and once at the end; never on one of its workers. That thread
// need not be the ui's own: the desktop program runs commands off its window thread, so
// its `update` hands the fraction to the window and answers from a cancel flag that the
// Cancel button sets. After a false answer the calculation stops within one chunk of
// work, reports itself cancelled and leaves the results it had before.
class Progress {
 public:
  virtual ~Progress() = default;
  virtual bool update(double fraction) = 0;
};

class Ui {
 public:
  virtual ~Ui() = default;

  // Shows a message box titled `title` holding `lines`, one text line each.
  virtual void message(std::string_view title, const std::vector<std::string>& lines) = 0;

  // Asks a yes/no question; no value when nobody can answer (the caller then takes the
  // answer that lets a batch go on, and logs it).
  virtual std::optional<bool> ask(std::string_view title, std::string_view question);

  // A file or folder chosen by the user; no value when the choice was cancelled or
  // nobody can choose.
  virtual std::optional<std::string> choose_file(const FileRequest& request);
  virtual std::optional<std::string> choose_folder(std::string_view title);

  // One item of a list chosen by the user (its 0-based index); no value when nobody
  // chooses. The list is titled `title` and asks `prompt`.
  virtual std::optional<std::size_t> choose_item(std::string_view title, std::string_view prompt,
                                                 const std::vector<std::string>& items);

  // Shows a mode's dialog with the values it holds now (the modeless dialog of the
  // module frame: its buttons and edits come back as commands through next_command).
  virtual void show_dialog(const Dialog& dialog, const std::vector<FieldValue>& values);
  // Shows the values of the dialog shown, after the mode wrote some of them (fitted
  // values as the next starting values, its result fields).
  virtual void update_dialog(const Dialog& dialog, const std::vector<FieldValue>& values);
  virtual void close_dialog();

  // A modal dialog: lets the user edit `values` (one per field of `dialog`) and answers
  // true on OK, false on Cancel; the default cancels.
  virtual bool edit_dialog(const Dialog& dialog, std::vector<FieldValue>& values);

  // The text viewer: shows a text (a listing, a log) under a title.
  virtual void show_text(std::string_view title, std::string_view text);

  // The graph view: loads and shows the graph source file `path`.
  virtual void show_graph(const std::string& path);

  // Starts showing the progress of long work titled `title`.
  virtual std::unique_ptr<Progress> progress(std::string_view title);

  // A hint shown while no data set is loaded ("Initial Program Information").
  virtual void show_hint(std::string_view title, const std::vector<std::string>& lines);

  // The program's state, given before the user is asked for the next command.
  virtual void show_session(const SessionView& view);

  // The next command typed or chosen by the user; no value at the end of input.
  virtual std::optional<std::string> next_command();
};

// Shows a message box and writes the same lines to the log, "TITLE: text" per line,
// which is how every error a user can cause is reported.
void report(Ui& ui, LogSink& log, std::string_view title, const std::vector<std::string>& lines);

}  // namespace tidemark::ui
