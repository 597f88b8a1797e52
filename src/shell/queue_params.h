#pragma once
// The parameter file of the job queue (*.par): one data file a line, to which the
// template is applied. Blank lines and lines beginning with "!" (comments, as in command
// files) are skipped; blanks around a name are not part of it; a CR before the line end
// is dropped. A line "study.csv | S07" names subject S07 of a long CSV file (the blank,
// bar, blank separates them). Any other character is part of the name: blanks, quotes,
// ";", "$", "&" and a leading "-" included.
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::shell {

struct QueueEntry {
  std::string file;
  std::string subject;  // empty unless the line names one
  bool operator==(const QueueEntry&) const = default;
};

std::vector<QueueEntry> parse_queue_parameters(std::string_view text);

}  // namespace tidemark::shell
