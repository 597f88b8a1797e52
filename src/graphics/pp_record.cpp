#include "graphics/pp_record.h"

#include "core/text.h"

namespace tidemark::graphics::pp {

bool read_record(std::istream& in, std::string& record) {
  record.clear();
  std::streambuf* buffer = in.rdbuf();
  if (buffer == nullptr) return false;
  using traits = std::streambuf::traits_type;
  // One character beyond the line length is kept so that a "\r" right after a full
  // line can still be recognised as part of the line ending.
  constexpr std::size_t keep = core::kLineLength + 1;
  std::size_t length = 0;
  int c = buffer->sbumpc();
  if (traits::eq_int_type(c, traits::eof())) return false;
  while (!traits::eq_int_type(c, traits::eof()) && c != '\n') {
    if (length < keep) record.push_back(traits::to_char_type(c));
    ++length;
    c = buffer->sbumpc();
  }
  if (length <= keep && !record.empty() && record.back() == '\r') record.pop_back();
  if (record.size() > core::kLineLength) record.resize(core::kLineLength);
  return true;
}

}  // namespace tidemark::graphics::pp
