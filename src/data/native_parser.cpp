#include "data/native_parser.h"

#include <fmt/format.h>

#include <utility>

#include "data/data_line.h"
#include "data/keyword_line.h"

namespace tidemark::data {

namespace {

bool is_blank_line(std::string_view line) {
  return line.find_first_not_of(" \t\r") == std::string_view::npos;
}

}  // namespace

NativeParser::NativeParser(std::string file_name, bool verbose) : verbose_(verbose) {
  result_.set.file_name = std::move(file_name);
}

void NativeParser::take(std::string_view line) {
  if (failed_ || is_blank_line(line)) return;
  switch (line.front()) {
    case ';':
      if (verbose_ || line.starts_with(";pp error: ")) result_.log.emplace_back(line);
      return;
    case '!':
      take_keyword(line);
      return;
    default:
      take_data(line);
      return;
  }
}

void NativeParser::take_keyword(std::string_view line) {
  auto outcome = apply_keyword_line(line, result_.set.file_name, result_.set);
  switch (outcome.effect) {
    case KeywordResult::Effect::kError:
      fail(std::move(outcome.messages));
      return;
    case KeywordResult::Effect::kVerboseOn:
      verbose_ = true;
      break;
    case KeywordResult::Effect::kVerboseOff:
      verbose_ = false;
      break;
    case KeywordResult::Effect::kApplied:
    case KeywordResult::Effect::kUnknown:
      break;
  }
  if (verbose_) result_.log.emplace_back(line);
}

void NativeParser::take_data(std::string_view line) {
  std::array<float, kColumnCount> values;
  Column bad = kX;
  if (!parse_data_line(line, values, bad)) {
    fail({data_error_message(bad, result_.set.size() + 1)});
    return;
  }
  result_.set.push_point(values);
  if (verbose_) result_.log.emplace_back(line);
}

void NativeParser::fail(std::vector<std::string> reasons) {
  failed_ = true;
  reasons_ = std::move(reasons);
}

NativeReadResult NativeParser::finish(int preprocessor_errors) && {
  result_.preprocessor_errors = preprocessor_errors;
  if (!failed_ && result_.set.size() < 2) fail({"Data Read Error, not enough data points!"});
  std::vector<std::string> shown;
  if (preprocessor_errors > 0) {
    shown.push_back(fmt::format("{} pre processor errors", preprocessor_errors));
    result_.log.push_back(shown.back());
  }
  if (failed_) {
    reasons_.insert(reasons_.begin(), std::string(kReadErrorLine));
    reasons_.insert(reasons_.end(), shown.begin(), shown.end());
    result_.messages.push_back({std::string(kReadErrorTitle), std::move(reasons_)});
    return std::move(result_);
  }
  if (!shown.empty()) {
    result_.messages.push_back({std::string(kPreprocessorErrorTitle), std::move(shown)});
  }
  result_.log.push_back(fmt::format("{} data points read", result_.set.size()));
  result_.status = NativeReadStatus::kRead;
  return std::move(result_);
}

}  // namespace tidemark::data
