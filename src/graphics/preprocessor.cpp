#include "graphics/preprocessor.h"

#include <filesystem>
#include <fstream>

#include "graphics/pp_run.h"

namespace tidemark::graphics {

namespace {

// Comment character of the message returned before the first initialisation: the one
// the native data reader uses.
constexpr char kDefaultCommentChar = ';';

std::unique_ptr<std::istream> open_file(const std::string& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return nullptr;
  auto in = std::make_unique<std::ifstream>(path, std::ios::binary);
  if (!in->is_open()) return nullptr;
  return in;
}

}  // namespace

struct Preprocessor::State {
  pp::Run run;
};

Preprocessor::Preprocessor() : Preprocessor(open_file) {}
Preprocessor::Preprocessor(Opener opener) : opener_(std::move(opener)) {}
Preprocessor::~Preprocessor() = default;

void Preprocessor::c_pre_proc_init(std::string_view file_name, std::string_view data_path,
                                   std::string_view root_path, bool verbose, char comment_char) {
  state_.reset();  // closes the files of an earlier run first
  state_ = std::make_unique<State>(
      State{pp::Run(opener_, {file_name, data_path, root_path, verbose, comment_char})});
}

std::int32_t Preprocessor::c_pre_proc(std::string& buffer) {
  if (!state_) {
    buffer.assign(1, kDefaultCommentChar);
    buffer.append("pp not initialized");
    return 1;
  }
  return state_->run.next_line(buffer);
}

int Preprocessor::error_count() const {
  return state_ ? state_->run.errors() : 0;
}

int Preprocessor::current_unit() const {
  return state_ ? state_->run.current_unit() : 0;
}

}  // namespace tidemark::graphics
