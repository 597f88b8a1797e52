#include "data/data_line.h"

#include <fmt/format.h>

#include "core/fortran_read.h"
#include "core/missing.h"

namespace tidemark::data {

namespace {

constexpr std::string_view kColumnNames[kColumnCount] = {"X",   "Y",   "DY",  "REPS",
                                                         "FX1", "FX2", "FX3", "FX4"};

bool is_blank_char(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}
bool ends_token(char c) {
  return is_blank_char(c) || c == ',';
}

std::string replace_nan(std::string_view line) {
  std::string out;
  out.reserve(line.size() + 16);
  std::size_t from = 0;
  for (std::size_t at = line.find("NaN"); at != std::string_view::npos;
       at = line.find("NaN", from)) {
    out.append(line.substr(from, at - from)).append(" -1.E35 ");
    from = at + 3;
  }
  out.append(line.substr(from));
  return out;
}

// Splits `line` into at most kColumnCount fields, an empty field as an empty view.
// Returns the number of fields found.
int split_fields(std::string_view line, std::array<std::string_view, kColumnCount>& fields) {
  int count = 0;
  std::size_t i = 0;
  const std::size_t n = line.size();
  while (count < kColumnCount) {
    while (i < n && is_blank_char(line[i])) ++i;
    if (i == n) break;
    if (line[i] == ',') {  // a comma with no value before it: an empty field
      fields[count++] = {};
      ++i;
      continue;
    }
    const std::size_t start = i;
    while (i < n && !ends_token(line[i])) ++i;
    fields[count++] = line.substr(start, i - start);
    while (i < n && is_blank_char(line[i])) ++i;
    if (i < n && line[i] == ',') ++i;  // the comma that ends this value
  }
  return count;
}

}  // namespace

bool parse_data_line(std::string_view line, std::array<float, kColumnCount>& values,
                     Column& bad_column) {
  std::string replaced;
  if (line.find("NaN") != std::string_view::npos) {
    replaced = replace_nan(line);
    line = replaced;
  }
  std::array<std::string_view, kColumnCount> fields;
  const int count = split_fields(line, fields);
  values.fill(core::kMissingF);
  values[kReps] = 1.0f;
  for (int c = 0; c < count; ++c) {
    if (fields[c].empty()) {
      values[c] = core::kMissingF;
    } else if (!core::read_real(fields[c], values[c])) {
      bad_column = static_cast<Column>(c);
      return false;
    }
  }
  if (count < kDY) {
    bad_column = static_cast<Column>(count);
    return false;
  }
  return true;
}

std::string data_error_message(Column column, int point) {
  return fmt::format("Native Mode Read Error Reading Data {}({}) Field", kColumnNames[column],
                     point);
}

}  // namespace tidemark::data
