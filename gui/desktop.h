#pragma once
// One run of the desktop program: the main window on the calling (window) thread and
// the shell, with the parts app/ registers, on a thread of its own, joined by the
// command queue and WindowUi.
//
//   Desktop desktop({"Tidemark", "0.1.0"}, parts, {"-@", "run.cmd"}, {});
//   desktop.window().show();
//   desktop.start();
//   app.exec();                  // ends when the shell has ended (EXIT answered yes)
//   return desktop.finish();
#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "command_queue.h"
#include "shell/program.h"

namespace tidemark::gui {

class MainWindow;
class WindowUi;

struct DesktopOptions {
  std::optional<std::string> screenshot;  // write the window here once the commands are done
};

class Desktop {
 public:
  Desktop(shell::ProgramInfo program, const shell::Components& components,
          std::vector<std::string> args, DesktopOptions options);
  ~Desktop();

  MainWindow& window() { return *window_; }
  // Starts the shell on its thread.
  void start();
  // True while the shell waits for a command and none is queued.
  bool idle() const { return commands_.idle(); }
  bool finished() const { return finished_; }
  // Ends the input, waits for the shell to end (the window thread goes on serving it)
  // and returns its exit status.
  int finish();

 private:
  shell::ProgramInfo program_;
  const shell::Components& components_;
  std::vector<std::string> args_;
  CommandQueue commands_;
  std::unique_ptr<MainWindow> window_;
  std::unique_ptr<WindowUi> ui_;
  std::thread shell_;
  std::atomic<bool> finished_{false};
  int status_ = 0;
};

}  // namespace tidemark::gui
