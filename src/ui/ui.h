#pragma once
// The interface through which the program reaches its user: message boxes now,
// dialogs, grids and the graph view as they are built. The headless program implements
// it on the console; the desktop program with real windows.
#include <string>
#include <string_view>
#include <vector>

#include "ui/log_sink.h"

namespace tidemark::ui {

class Ui {
 public:
  virtual ~Ui() = default;
  // Shows a message box titled `title` holding `lines`, one text line each.
  virtual void message(std::string_view title, const std::vector<std::string>& lines) = 0;
};

// Shows a message box and writes the same lines to the log, "TITLE: text" per line,
// which is how every error a user can cause is reported.
void report(Ui& ui, LogSink& log, std::string_view title, const std::vector<std::string>& lines);

}  // namespace tidemark::ui
