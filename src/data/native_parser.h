#pragma once
// The native-mode file grammar, line by line: keyword lines, comment lines and data
// lines, as the preprocessor hands them on. Pure: no file access, no user interface;
// what is to be shown or logged comes back in the result.
#include <string>
#include <string_view>
#include <vector>

#include "data/dataset.h"

namespace tidemark::data {

// A message box to show: its title and its text lines.
struct MessageBox {
  std::string title;
  std::vector<std::string> lines;
};

// How a read ended: the record complete, so that it may be appended to the store, or
// failed (the one message box says why).
enum class NativeReadStatus { kRead, kFailed };

struct NativeReadResult {
  NativeReadStatus status = NativeReadStatus::kFailed;
  DataSet set;
  std::vector<MessageBox> messages;  // to show (and log) in this order
  std::vector<std::string> log;      // further lines for the log only
  int preprocessor_errors = 0;

  bool ok() const { return status == NativeReadStatus::kRead; }
};

// Title and first line of the box of a read that fails.
inline constexpr std::string_view kReadErrorTitle = "ERROR READING DATA FILE";
inline constexpr std::string_view kReadErrorLine = "Could Not Read The Data File";
// Title of the box that shows preprocessor errors of a read that succeeded.
inline constexpr std::string_view kPreprocessorErrorTitle = "PRE PROCESSOR ERRORS";

class NativeParser {
 public:
  // `file_name` is the name of the file being read: the record's file name unless a
  // !FILENAME line gives another. `verbose` starts verbose reading, which logs every
  // line taken (comments included) until "!verbose OFF".
  NativeParser(std::string file_name, bool verbose);

  // Takes the next line. A line starting with ";" is a comment (the preprocessor's
  // error lines, ";pp error: ...", arrive so and are always logged); one starting with
  // "!" a keyword line (see apply_keyword_line); any other non-blank line a data line
  // (see parse_data_line). Keyword and data lines may come in any order. After the
  // first error the read has failed and further lines are ignored.
  void take(std::string_view line);

  bool failed() const { return failed_; }

  // Ends the read. It succeeds when no line failed and at least 2 points were read;
  // then "N data points read" is logged. Otherwise the one message box titled
  // "ERROR READING DATA FILE" holds "Could Not Read The Data File" and the reason
  // ("Data Read Error, not enough data points!" for fewer than 2 points).
  // `preprocessor_errors` > 0 adds the line "N pre processor errors" to the log and
  // shows it: in the error box of a failed read, in its own box otherwise.
  NativeReadResult finish(int preprocessor_errors) &&;

 private:
  void fail(std::vector<std::string> reasons);
  void take_keyword(std::string_view line);
  void take_data(std::string_view line);

  NativeReadResult result_;
  std::vector<std::string> reasons_;
  bool verbose_;
  bool failed_ = false;
};

}  // namespace tidemark::data
