#pragma once
// A desktop run inside the test: the main window on the offscreen platform and the
// shell on its thread, with a fresh program folder whose registry names a working
// folder (so no folder is asked for at start-up). Every modal window is answered at
// once: questions with `answer_yes`, file choosers with the next of `files_to_choose`
// (cancelled when there is none), lists with `item_to_choose`, message boxes closed; the
// titles seen are kept. So no modal question ever blocks a test.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <chrono>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "app/components.h"
#include "gui/desktop.h"
#include "gui/graph_view.h"
#include "gui/main_window.h"
#include "gui/mode_panel.h"
#include "shell/scratch.h"

namespace tidemark::testing_support {

inline void ensure_application() {
  if (QApplication::instance() != nullptr) return;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static int argc = 1;
  static char name[] = "gui_tests";
  static char* argv[] = {name, nullptr};
  new QApplication(argc, argv);
}

class DesktopTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ensure_application();
    work_ = scratch_.path() / "work";
    std::filesystem::create_directories(work_);
    scratch_.write("home/system/registry.ini", "Default_Folder=" + work_.string() + "\n");
    setenv("TIDEMARK_HOME", (scratch_.path() / "home").c_str(), 1);
    desktop_ = std::make_unique<gui::Desktop>(shell::ProgramInfo{"Tidemark", "0.1.0"}, parts(),
                                              std::vector<std::string>{}, gui::DesktopOptions{});
    window().show();
    answerer_.setInterval(10);
    QObject::connect(&answerer_, &QTimer::timeout, [this] { answer_modal(); });
    answerer_.start();
    desktop_->start();
    settle();
  }

  void TearDown() override {
    desktop_->finish();
    answerer_.stop();
    desktop_.reset();
  }

  static const shell::Components& parts() {
    static const shell::Components kParts = app::registered_components();
    return kParts;
  }

  gui::MainWindow& window() { return desktop_->window(); }

  // Waits until the shell has carried out every command issued, the window has shown
  // what it sent back and every message box is answered.
  void settle() {
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    int quiet = 0;
    while (quiet < 3 && std::chrono::steady_clock::now() < until) {
      QApplication::processEvents(QEventLoop::AllEvents, 20);
      const bool shell_done = desktop_->idle() || desktop_->finished();
      quiet = shell_done && QApplication::activeModalWidget() == nullptr ? quiet + 1 : 0;
    }
    ASSERT_GE(quiet, 3) << "the shell did not finish its commands";
  }

  void trigger(const std::string& path) {
    QAction* a = window().action(path);
    ASSERT_NE(a, nullptr) << path;
    a->trigger();
    settle();
  }

  // The commands of the history after the start-up lines (SEED and the start folder's
  // CD that follows it), comments left out.
  std::vector<std::string> commands() {
    std::vector<std::string> lines;
    std::istringstream in(Scratch::read(window().session().history));
    bool after_seed = false;
    for (std::string line; std::getline(in, line);) {
      if (line.empty() || line[0] == '!') continue;
      const bool start_folder = after_seed && line.rfind("CD ", 0) == 0;
      after_seed = line.rfind("SEED ", 0) == 0;
      if (after_seed || start_folder) continue;
      lines.push_back(line);
    }
    return lines;
  }
  std::string last_command() {
    const auto all = commands();
    return all.empty() ? std::string() : all.back();
  }
  // The last command other than SET: entering a mode records a SET line for each field
  // it starts with, after the MODE line.
  std::string last_command_but_sets() {
    const auto all = commands();
    for (auto line = all.rbegin(); line != all.rend(); ++line) {
      if (line->rfind("SET ", 0) != 0) return *line;
    }
    return {};
  }

  std::string example(const std::string& name) {
    const auto target = work_ / name;
    std::filesystem::copy_file(std::filesystem::path(TIDEMARK_SOURCE_DIR) / "examples" / name,
                               target, std::filesystem::copy_options::overwrite_existing);
    return target.string();
  }

  void read_example(const std::string& name) {
    files_to_choose.push_back(example(name));
    trigger("File/Read a Data File/Native Mode");
  }

  // Reads the LH example and calculates Cluster8, whose graph has options; the graph
  // view's check boxes.
  QList<QCheckBox*> cluster8_option_boxes() {
    read_example("lh_24h_10min.dat");
    trigger("Mode/Cluster8");
    window().mode_panel()->findChild<QPushButton*>("Calculate")->click();
    settle();
    return window().graph_view()->findChildren<QCheckBox*>();
  }

  // The graph view's check box labelled `label` now (the boxes are made again with each
  // graph); null when there is none.
  QCheckBox* option_box(const std::string& label) {
    for (QCheckBox* box : window().graph_view()->findChildren<QCheckBox*>())
      if (box->text().toStdString() == label) return box;
    return nullptr;
  }

  Scratch scratch_;
  std::filesystem::path work_;
  std::unique_ptr<gui::Desktop> desktop_;
  bool answer_yes = true;
  std::deque<std::string> files_to_choose;
  std::string item_to_choose;
  std::vector<std::string> titles_seen;

 private:
  void answer_modal() {
    QWidget* w = QApplication::activeModalWidget();
    if (w == nullptr) return;
    titles_seen.push_back(w->windowTitle().toStdString());
    if (auto* box = qobject_cast<QMessageBox*>(w)) {
      if (box->button(QMessageBox::Yes) != nullptr) {
        box->button(answer_yes ? QMessageBox::Yes : QMessageBox::No)->click();
      } else {
        box->done(QMessageBox::Ok);
      }
    } else if (auto* chooser = qobject_cast<QFileDialog*>(w)) {
      // Typed into the name field as a whole path, which the chooser's OK takes as it
      // is (its folder view may still be loading).
      if (files_to_choose.empty()) return chooser->reject();
      auto* name = chooser->findChild<QLineEdit*>("fileNameEdit");
      if (name == nullptr) return chooser->reject();
      name->setText(QString::fromStdString(files_to_choose.front()));
      files_to_choose.pop_front();
      QMetaObject::invokeMethod(chooser, "accept");
    } else if (auto* list = qobject_cast<QInputDialog*>(w)) {
      list->setTextValue(QString::fromStdString(item_to_choose));
      list->accept();
    }
  }

  QTimer answerer_;
};

}  // namespace tidemark::testing_support
