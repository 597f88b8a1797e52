#include "graphics/pp_symbols.h"

#include "core/text.h"

namespace tidemark::graphics::pp {

namespace {

std::string_view stored_name(std::string_view name) {
  return core::rtrim(name.substr(0, kNameLength));
}

std::string_view stored_value(std::string_view value) {
  return core::rtrim(value.substr(0, core::kLineLength));
}

}  // namespace

SymbolTable::SymbolTable() {
  rows_.reserve(capacity_);
}

int SymbolTable::find(std::string_view name) const {
  const std::string_view key = stored_name(name);
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (rows_[row].name == key) return static_cast<int>(row);
  }
  return -1;
}

bool SymbolTable::append(std::string_view name, std::string_view value) {
  const std::string_view key = stored_name(name);
  if (key.empty() || find(key) >= 0) return false;
  if (rows_.size() == capacity_) {
    capacity_ += kCapacityStep;
    rows_.reserve(capacity_);
  }
  rows_.push_back(Symbol{std::string(key), std::string(stored_value(value))});
  return true;
}

void SymbolTable::set_value(std::size_t row, std::string_view value) {
  rows_[row].value.assign(stored_value(value));
}

void SymbolTable::remove(std::size_t row) {
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
}

}  // namespace tidemark::graphics::pp
