#include "shell/not_available.h"

#include <string>
#include <utility>
#include <vector>

#include "shell/command_text.h"

namespace tidemark::shell {

namespace {

class NotAvailable : public CommandHandler {
 public:
  NotAvailable(std::vector<std::string_view> names, std::string title, std::string message)
      : names_(std::move(names)), title_(std::move(title)), message_(std::move(message)) {}

  bool handle(std::string_view command, Session& session) override {
    for (std::string_view name : names_) {
      if (command_is(command, name)) {
        session.error(title_, {message_, std::string(command)});
        return true;
      }
    }
    return false;
  }

 private:
  std::vector<std::string_view> names_;
  std::string title_;
  std::string message_;
};

}  // namespace

std::unique_ptr<CommandHandler> graphics_not_available() {
  return std::make_unique<NotAvailable>(
      std::vector<std::string_view>{"LOAD_GRF", "LOAD_GRAF", "PRINT_GRF", "PRINT_GRAF", "!EDIT_GRF",
                                    "SAVE_GRF_CLIP", "SAVE_GRF_PNG", "SAVE_GRF_SVG", "SAVE_GRF_PDF",
                                    "SAVE_GRF_PS", "NEXT_GRAPH", "PREVIOUS_GRAPH", "GRF_OPTION"},
      "Graphics", "Graphics are not available in this version.");
}

std::unique_ptr<CommandHandler> spreadsheet_not_available() {
  return std::make_unique<NotAvailable>(std::vector<std::string_view>{"SPREADSHEET"},
                                        "Data SpreadSheet",
                                        "The data spreadsheet is not available in this version.");
}

}  // namespace tidemark::shell
