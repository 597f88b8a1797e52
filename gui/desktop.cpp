#include "desktop.h"

#include <QApplication>
#include <QMetaObject>

#include "main_window.h"
#include "window_ui.h"

namespace tidemark::gui {

Desktop::Desktop(shell::ProgramInfo program, const shell::Components& components,
                 std::vector<std::string> args, DesktopOptions options)
    : program_(std::move(program)), components_(components), args_(std::move(args)) {
  window_ = std::make_unique<MainWindow>([this](const std::string& c) { commands_.push(c); },
                                         program_.version);
  ui_ = std::make_unique<WindowUi>(*window_, commands_, options.screenshot.has_value());
  if (options.screenshot) ui_->screenshot_when_waiting(*options.screenshot);
}

Desktop::~Desktop() { finish(); }

void Desktop::start() {
  shell_ = std::thread([this] {
    status_ = shell::run_program(program_, args_, *ui_, components_);
    finished_ = true;
    QMetaObject::invokeMethod(window_.get(), [w = window_.get()] { w->shell_finished(); },
                              Qt::QueuedConnection);
  });
}

int Desktop::finish() {
  if (!shell_.joinable()) return status_;
  commands_.close();
  while (!finished_) QApplication::processEvents(QEventLoop::AllEvents, 10);
  shell_.join();
  QApplication::processEvents();
  return status_;
}

}  // namespace tidemark::gui
