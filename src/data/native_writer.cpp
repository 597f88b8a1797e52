#include "data/native_writer.h"

#include <fmt/format.h>

#include <cmath>
#include <string_view>

#include "core/fortran_format.h"
#include "core/missing.h"
#include "core/text.h"
#include "data/save_text.h"

namespace tidemark::data {

namespace {

constexpr std::string_view kHeaderKeywords[kColumnCount] = {
    "!header_x",   "!header_y",   "!header_dy",  "!header_reps",
    "!header_fx1", "!header_fx2", "!header_fx3", "!header_fx4"};

bool is_set(double v) {
  return std::isfinite(v) && !core::is_missing(v);
}

// Appends `line` without its trailing blanks, and a line end.
void put(std::string& out, std::string_view line) {
  out.append(core::rtrim(line));
  out.push_back('\n');
}

void put_text(std::string& out, std::string_view keyword, std::string_view text) {
  if (core::is_blank(text)) return;
  std::string line = fmt::format("{} = {}", keyword, text);
  for (char& c : line) {
    if (c == '\n' || c == '\r') c = ' ';
  }
  put(out, line);
}

void put_integer(std::string& out, std::string_view keyword, int value) {
  if (!core::is_missing_int(value)) put(out, fmt::format("{} = {}", keyword, value));
}

void put_slots(std::string& out, const DataSet& set) {
  for (int i = 0; i < kAnswerCount; ++i) {
    if (is_set(set.answers[i])) {
      put(out, fmt::format("!ANSWER({}) ={}", i + 1, core::format_g15_5(set.answers[i])));
    }
  }
  for (int i = 0; i < kRealCount; ++i) {
    if (is_set(set.reals[i])) {
      put(out, fmt::format("!REAL({}) ={}", i + 1, core::format_g15_5(set.reals[i])));
    }
  }
  for (int i = 0; i < kIntegerCount; ++i) {
    put_integer(out, fmt::format("!INTEGER({})", i + 1), set.integers[i]);
  }
  for (int i = 0; i < kStringCount; ++i) {
    put_text(out, fmt::format("!STRING({})", i + 1), set.strings[i]);
  }
}

void put_points(std::string& out, const DataSet& set) {
  std::string line;
  for (int p = 0; p < set.size(); ++p) {
    line.clear();
    for (const auto& column : set.columns) {
      const double v = column[p];
      line += core::format_g15_5(is_set(v) ? v : core::kMissingF);
    }
    put(out, line);
  }
}

}  // namespace

std::string native_text(const DataSet& set) {
  std::string out;
  put_text(out, ";!FILENAME", set.file_name);
  put_text(out, "!HANDLE", set.handle);
  put_integer(out, "!DSType", set.ds_type);
  put_integer(out, "!CROP_Start", set.crop_start);
  put_integer(out, "!CROP_End", set.crop_end);
  put_text(out, "!FILETYPE", set.file_type);
  put_text(out, "!FILESUBTYPE", set.file_subtype);
  put_slots(out, set);
  for (int c = 0; c < kColumnCount; ++c) put_text(out, kHeaderKeywords[c], set.headers[c]);
  put_points(out, set);
  return out;
}

bool write_native(const DataSet& set, const std::string& path, ui::Ui& ui, ui::LogSink& log) {
  return save_text(path, native_text(set), "WRITE NATIVE MODE FILE", ui, log);
}

}  // namespace tidemark::data
