#pragma once
// The preprocessor's symbol table: names and values, kept in order of definition.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::graphics::pp {

// Longest symbol name; longer names are cut to this length.
inline constexpr std::size_t kNameLength = 50;

struct Symbol {
  std::string name;   // 1 to kNameLength characters, no trailing blanks
  std::string value;  // up to core::kLineLength characters, no trailing blanks; may be empty
};

// Rows in order of definition. The capacity starts at 50 rows and grows by 50 when a
// new row would not fit. Names are held as the fixed fields of the file format hold
// them: cut to kNameLength characters, trailing blanks removed, and compared that way.
class SymbolTable {
 public:
  static constexpr std::size_t kCapacityStep = 50;

  SymbolTable();

  // The row (0-based) whose name equals `name` once cut and trimmed; -1 when none.
  int find(std::string_view name) const;

  // Appends a row. Refused (false) when the name is blank or already defined.
  bool append(std::string_view name, std::string_view value);

  // Replaces the value of `row` (cut to core::kLineLength, trailing blanks removed).
  void set_value(std::size_t row, std::string_view value);

  // Removes `row`; later rows move up one place.
  void remove(std::size_t row);

  const std::vector<Symbol>& rows() const { return rows_; }
  std::size_t capacity() const { return capacity_; }

 private:
  std::vector<Symbol> rows_;
  std::size_t capacity_ = kCapacityStep;
};

}  // namespace tidemark::graphics::pp
