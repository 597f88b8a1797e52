#include "window_ui.h"

#include <QApplication>
#include <QMetaObject>
#include <QPixmap>
#include <iostream>

#include "main_window.h"

namespace tidemark::gui {

namespace {

// Runs `f` on the window's thread and waits for its result.
template <typename F>
auto on_window(MainWindow& window, F f) {
  using R = decltype(f());
  if constexpr (std::is_void_v<R>) {
    QMetaObject::invokeMethod(&window, std::move(f), Qt::BlockingQueuedConnection);
  } else {
    R result{};
    QMetaObject::invokeMethod(&window, std::move(f), Qt::BlockingQueuedConnection, &result);
    return result;
  }
}

// Runs `f` on the window's thread later, in the order of the calls.
template <typename F>
void post(MainWindow& window, F f) {
  QMetaObject::invokeMethod(&window, std::move(f), Qt::QueuedConnection);
}

class WindowProgress : public ui::Progress {
 public:
  WindowProgress(MainWindow& window, int id, std::string title)
      : window_(window), id_(id), cancel_(std::make_shared<std::atomic<bool>>(false)) {
    post(window_, [w = &window_, id, title = std::move(title), c = cancel_] {
      w->begin_progress(id, title, c);
    });
  }
  ~WindowProgress() override {
    post(window_, [w = &window_, id = id_] { w->end_progress(id); });
  }
  bool update(double fraction) override {
    // Work on several threads may report at once; each percentage is shown once.
    const int percent = static_cast<int>(fraction * 100.0);
    if (shown_.exchange(percent) != percent) {
      post(window_, [w = &window_, id = id_, percent] { w->update_progress(id, percent); });
    }
    return !cancel_->load();
  }

 private:
  MainWindow& window_;
  int id_;
  std::shared_ptr<std::atomic<bool>> cancel_;
  std::atomic<int> shown_{-1};
};

}  // namespace

bool save_screenshot(MainWindow& window, const std::string& path) {
  for (int i = 0; i < 5; ++i) QApplication::processEvents();
  return window.grab().save(QString::fromStdString(path), "PNG");
}

WindowUi::WindowUi(MainWindow& window, CommandQueue& commands, bool batch)
    : window_(window), commands_(commands), batch_(batch) {}

void WindowUi::message(std::string_view title, const std::vector<std::string>& lines) {
  if (batch_) {
    for (const auto& line : lines) std::cerr << title << ": " << line << '\n';
    return;
  }
  post(window_, [w = &window_, t = std::string(title), lines] { w->show_message(t, lines); });
}

std::optional<bool> WindowUi::ask(std::string_view title, std::string_view question) {
  if (batch_) return std::nullopt;
  return on_window(window_, [w = &window_, t = std::string(title), q = std::string(question)] {
    return w->ask(t, q);
  });
}

std::optional<std::string> WindowUi::choose_file(const ui::FileRequest& request) {
  if (batch_) return std::nullopt;
  return on_window(window_, [w = &window_, request] { return w->choose_file(request); });
}

std::optional<std::string> WindowUi::choose_folder(std::string_view title) {
  if (batch_) return std::nullopt;
  return on_window(window_, [w = &window_, t = std::string(title)] { return w->choose_folder(t); });
}

std::optional<std::size_t> WindowUi::choose_item(std::string_view title, std::string_view prompt,
                                                 const std::vector<std::string>& items) {
  if (batch_) return std::nullopt;
  return on_window(window_, [w = &window_, t = std::string(title), p = std::string(prompt), items] {
    return w->choose_item(t, p, items);
  });
}

void WindowUi::show_dialog(const ui::Dialog& dialog, const std::vector<ui::FieldValue>& values) {
  post(window_, [w = &window_, dialog, values] { w->show_dialog(dialog, values); });
}

// Work may update its dialog thousands of times a second (a Monte-Carlo cycle count);
// the window shows the latest values, once per turn of its event loop.
void WindowUi::update_dialog(const ui::Dialog& dialog, const std::vector<ui::FieldValue>& values) {
  {
    std::lock_guard lock(update_mutex_);
    const bool posted = pending_update_.has_value();
    pending_update_ = PendingUpdate{dialog, values};
    if (posted) return;
  }
  post(window_, [this] {
    std::optional<PendingUpdate> update;
    {
      std::lock_guard lock(update_mutex_);
      update.swap(pending_update_);
    }
    if (update) window_.show_dialog(update->dialog, update->values);
  });
}

void WindowUi::close_dialog() {
  post(window_, [w = &window_] { w->close_dialog(); });
}

bool WindowUi::edit_dialog(const ui::Dialog& dialog, std::vector<ui::FieldValue>& values) {
  if (batch_) return false;
  return on_window(window_, [w = &window_, &dialog, &values] { return w->edit_dialog(dialog, values); });
}

void WindowUi::show_text(std::string_view title, std::string_view text) {
  post(window_, [w = &window_, t = std::string(title), x = std::string(text)] { w->show_text(t, x); });
}

void WindowUi::show_graph(const std::string& path) {
  post(window_, [w = &window_, path] { w->show_graph(path); });
}

std::unique_ptr<ui::Progress> WindowUi::progress(std::string_view title) {
  return std::make_unique<WindowProgress>(window_, ++next_work_, std::string(title));
}

void WindowUi::show_hint(std::string_view title, const std::vector<std::string>& lines) {
  post(window_, [w = &window_, t = std::string(title), lines] { w->show_hint(t, lines); });
}

void WindowUi::show_session(const ui::SessionView& view) {
  post(window_, [w = &window_, view] { w->show_session(view); });
}

std::optional<std::string> WindowUi::next_command() {
  if (screenshot_) {
    const bool saved = on_window(window_, [w = &window_, p = *screenshot_] { return save_screenshot(*w, p); });
    if (!saved) std::cerr << "Screenshot: could not write " << *screenshot_ << '\n';
    return std::nullopt;
  }
  return commands_.pop();
}

}  // namespace tidemark::gui
