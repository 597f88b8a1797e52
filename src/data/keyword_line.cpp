#include "data/keyword_line.h"

#include "core/fortran_read.h"
#include "core/text.h"

namespace tidemark::data {

namespace {

using Effect = KeywordResult::Effect;

enum class Kind { kVerbose, kUnitCount, kInteger, kText, kSlot, kHeader };
enum class Slot { kAnswer, kReal, kInteger, kString };

struct Keyword {
  std::string_view word;  // as matched, upper case
  Kind kind;
  std::string_view label;  // as the messages name the field
  int DataSet::*integer = nullptr;
  std::string DataSet::*text = nullptr;
  std::string_view invalid = {};  // message for a blank text value
  Slot slot = Slot::kAnswer;
  int column = 0;
};

// clang-format off
constexpr Keyword kKeywords[] = {
    {.word = "!VERBOSE", .kind = Kind::kVerbose, .label = "!VERBOSE"},
    {.word = "!NX", .kind = Kind::kUnitCount, .label = "!NX", .integer = &DataSet::nx},
    {.word = "!NY", .kind = Kind::kUnitCount, .label = "!NY", .integer = &DataSet::ny},
    {.word = "!DSTYPE", .kind = Kind::kInteger, .label = "!DSType", .integer = &DataSet::ds_type},
    {.word = "!CROP_START", .kind = Kind::kInteger, .label = "!CROP_Start",
     .integer = &DataSet::crop_start},
    {.word = "!CROP_END", .kind = Kind::kInteger, .label = "!CROP_End",
     .integer = &DataSet::crop_end},
    {.word = "!FILENAME", .kind = Kind::kText, .label = "!FILENAME",
     .text = &DataSet::file_name, .invalid = "!Invalid File Name"},
    {.word = "!HANDLE", .kind = Kind::kText, .label = "!HANDLE", .text = &DataSet::handle,
     .invalid = "!Invalid HANDLE"},
    {.word = "!FILETYPE", .kind = Kind::kText, .label = "!FILETYPE",
     .text = &DataSet::file_type, .invalid = "!Invalid FILETYPE"},
    {.word = "!FILESUBTYPE", .kind = Kind::kText, .label = "!FILETSUBYPE",
     .text = &DataSet::file_subtype, .invalid = "!Invalid FILESUBTYPE"},
    {.word = "!ANSWER", .kind = Kind::kSlot, .label = "!ANSWER", .slot = Slot::kAnswer},
    {.word = "!REAL", .kind = Kind::kSlot, .label = "!REAL", .slot = Slot::kReal},
    {.word = "!INTEGER", .kind = Kind::kSlot, .label = "!INTEGER", .slot = Slot::kInteger},
    {.word = "!STRING", .kind = Kind::kSlot, .label = "!STRING", .slot = Slot::kString},
    {.word = "!HEADER_X", .kind = Kind::kHeader, .label = "!header_x", .column = kX},
    {.word = "!HEADER_Y", .kind = Kind::kHeader, .label = "!header_y", .column = kY},
    {.word = "!HEADER_DY", .kind = Kind::kHeader, .label = "!header_dy", .column = kDY},
    {.word = "!HEADER_REPS", .kind = Kind::kHeader, .label = "!header_reps", .column = kReps},
    {.word = "!HEADER_FX1", .kind = Kind::kHeader, .label = "!header_fx1", .column = kFx1},
    {.word = "!HEADER_FX2", .kind = Kind::kHeader, .label = "!header_fx2", .column = kFx2},
    {.word = "!HEADER_FX3", .kind = Kind::kHeader, .label = "!header_fx3", .column = kFx3},
    {.word = "!HEADER_FX4", .kind = Kind::kHeader, .label = "!header_fx4", .column = kFx4},
};
// clang-format on

bool is_blank_char(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

std::string_view skip_blanks(std::string_view s) {
  while (!s.empty() && is_blank_char(s.front())) s.remove_prefix(1);
  return s;
}

// The value after a keyword: optional blanks, an optional "=", blanks; trailing blanks
// (and the CR of a CR LF line end) are not part of it.
std::string_view value_of(std::string_view rest) {
  rest = skip_blanks(rest);
  if (!rest.empty() && rest.front() == '=') rest = skip_blanks(rest.substr(1));
  while (!rest.empty() && is_blank_char(rest.back())) rest.remove_suffix(1);
  return rest;
}

// The first list item of a value: what a list-directed read of one number looks at.
std::string_view first_item(std::string_view value) {
  std::size_t end = 0;
  while (end < value.size() && !is_blank_char(value[end]) && value[end] != ',') ++end;
  return value.substr(0, end);
}

constexpr std::string_view kReadError = "Native Mode Read Error Reading ";

std::string field_error(std::string_view label) {
  return std::string(kReadError) + std::string(label) + " Field";
}

KeywordResult error(std::vector<std::string> messages) {
  return {Effect::kError, std::move(messages)};
}

KeywordResult unit_count(const Keyword& k, std::string_view value, std::string_view file_name,
                         DataSet& set) {
  int n = 0;
  if (!core::read_integer(first_item(value), n)) return error({field_error(k.label)});
  if (n > 1) return error({std::string(k.label) + " value was too big " + std::string(file_name)});
  if (n < 1) {
    return error({std::string(k.label) + " value was too small " + std::string(file_name)});
  }
  set.*k.integer = n;
  return {};
}

KeywordResult integer(const Keyword& k, std::string_view value, DataSet& set) {
  if (!core::read_integer(first_item(value), set.*k.integer)) {
    return error({field_error(k.label)});
  }
  return {};
}

KeywordResult text(const Keyword& k, std::string_view value, DataSet& set) {
  if (value.empty()) return error({std::string(k.invalid), field_error(k.label)});
  set.*k.text = value;
  return {};
}

KeywordResult header(const Keyword& k, std::string_view value, std::string_view line,
                     DataSet& set) {
  if (value.empty())
    return error({std::string(kReadError) + "!Invalid VALUE " + std::string(line)});
  set.headers[k.column] = value;
  return {};
}

int slot_count(Slot slot) {
  switch (slot) {
    case Slot::kAnswer:
      return kAnswerCount;
    case Slot::kReal:
      return kRealCount;
    case Slot::kInteger:
      return kIntegerCount;
    case Slot::kString:
      return kStringCount;
  }
  return 0;
}

// Stores `value` in slot `i` (0-based) of the kind; false when it cannot be read.
bool store_slot(Slot slot, int i, std::string_view value, DataSet& set) {
  switch (slot) {
    case Slot::kAnswer:
      return core::read_real(first_item(value), set.answers[i]);
    case Slot::kReal:
      return core::read_real(first_item(value), set.reals[i]);
    case Slot::kInteger:
      return core::read_integer(first_item(value), set.integers[i]);
    case Slot::kString:
      if (value.empty()) return false;
      set.strings[i] = value;
      return true;
  }
  return false;
}

// "!ANSWER(12) = 3.5": `rest` is what follows the keyword.
KeywordResult slot(const Keyword& k, std::string_view rest, std::string_view line, DataSet& set) {
  const auto fail = [&](std::string_view why) {
    return error({std::string(why) + std::string(line), field_error(k.label)});
  };
  rest = skip_blanks(rest);
  const std::size_t close = rest.find(')');
  if (rest.empty() || rest.front() != '(' || close == std::string_view::npos) {
    return fail("!UNKNOWN ERROR ");
  }
  int index = 0;
  if (!core::read_integer(rest.substr(1, close - 1), index) || index < 1 ||
      index > slot_count(k.slot)) {
    return fail("!Invalid INDEX ");
  }
  if (!store_slot(k.slot, index - 1, value_of(rest.substr(close + 1)), set)) {
    return fail("!Invalid VALUE ");
  }
  return {};
}

}  // namespace

KeywordResult apply_keyword_line(std::string_view line, std::string_view file_name, DataSet& set) {
  for (const Keyword& k : kKeywords) {
    if (!core::starts_with_nocase(line, k.word)) continue;
    const std::string_view rest = line.substr(k.word.size());
    const std::string_view value = value_of(rest);
    switch (k.kind) {
      case Kind::kVerbose:
        return {core::starts_with_nocase(value, "OFF") ? Effect::kVerboseOff : Effect::kVerboseOn,
                {}};
      case Kind::kUnitCount:
        return unit_count(k, value, file_name, set);
      case Kind::kInteger:
        return integer(k, value, set);
      case Kind::kText:
        return text(k, value, set);
      case Kind::kSlot:
        return slot(k, rest, line, set);
      case Kind::kHeader:
        return header(k, value, line, set);
    }
  }
  return {Effect::kUnknown, {}};
}

}  // namespace tidemark::data
