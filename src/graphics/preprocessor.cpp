#include "graphics/preprocessor.h"

namespace tidemark::graphics {

struct Preprocessor::State {};

Preprocessor::Preprocessor() = default;
Preprocessor::Preprocessor(Opener opener) : opener_(std::move(opener)) {}
Preprocessor::~Preprocessor() = default;

void Preprocessor::c_pre_proc_init(std::string_view, std::string_view, std::string_view, bool,
                                   char) {}

std::int32_t Preprocessor::c_pre_proc(std::string& buffer) {
  buffer.clear();
  return 1;
}

int Preprocessor::error_count() const { return 0; }

}  // namespace tidemark::graphics
