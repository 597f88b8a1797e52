#include "ui/ui.h"

namespace tidemark::ui {

namespace {

// Progress that nobody sees and nobody cancels.
class SilentProgress : public Progress {
 public:
  bool update(double) override { return true; }
};

}  // namespace

std::optional<bool> Ui::ask(std::string_view, std::string_view) {
  return std::nullopt;
}

std::optional<std::string> Ui::choose_file(const FileRequest&) {
  return std::nullopt;
}

std::optional<std::string> Ui::choose_folder(std::string_view) {
  return std::nullopt;
}

std::optional<std::size_t> Ui::choose_item(std::string_view, std::string_view,
                                           const std::vector<std::string>&) {
  return std::nullopt;
}

void Ui::show_dialog(const Dialog&, const std::vector<FieldValue>&) {}

void Ui::update_dialog(const Dialog&, const std::vector<FieldValue>&) {}

void Ui::close_dialog() {}

bool Ui::edit_dialog(const Dialog&, std::vector<FieldValue>&) {
  return false;
}

void Ui::show_text(std::string_view, std::string_view) {}

void Ui::show_graph(const std::string&) {}

std::unique_ptr<Progress> Ui::progress(std::string_view) {
  return std::make_unique<SilentProgress>();
}

void Ui::show_hint(std::string_view, const std::vector<std::string>&) {}

void Ui::show_session(const SessionView&) {}

std::optional<std::string> Ui::next_command() {
  return std::nullopt;
}

}  // namespace tidemark::ui
