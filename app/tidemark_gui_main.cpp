// The desktop program: the same shell, modes and command language as the headless
// program, in windows. Takes the headless program's command line and one option more:
//
//   tidemark-gui -@ run.cmd --screenshot main.png
//
// runs the command file, writes a PNG of the main window (with the last graph and
// dialog shown) and ends.
#include <QApplication>
#include <QIcon>
#include <string>
#include <vector>

#include "components.h"
#include "gui/desktop.h"
#include "gui/main_window.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("tidemark-gui");
  QApplication::setDesktopFileName("tidemark-gui");
  QApplication::setWindowIcon(QIcon::fromTheme("tidemark-gui", QIcon(":/tidemark-gui.svg")));
  std::vector<std::string> args;
  tidemark::gui::DesktopOptions options;
  const QStringList arguments = QApplication::arguments();
  for (qsizetype i = 1; i < arguments.size(); ++i) {
    if (arguments[i] == "--screenshot" && i + 1 < arguments.size()) {
      options.screenshot = arguments[++i].toStdString();
    } else {
      args.push_back(arguments[i].toStdString());
    }
  }
  static const tidemark::shell::Components parts = tidemark::app::registered_components();
  tidemark::gui::Desktop desktop({"Tidemark", TIDEMARK_VERSION}, parts, args, options);
  desktop.window().show();
  desktop.start();
  app.exec();
  return desktop.finish();
}
