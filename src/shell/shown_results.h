#pragma once
// Whose results a mode's listing and graph now show. A failed calculation may leave the
// listing or graph of an earlier one on show (of another data set, or of the same one
// with other settings); a copy or export of them then says whose they are, so that they
// are not taken for the failed calculation's results.
#include <optional>
#include <string>
#include <string_view>

#include "shell/mode_output.h"

namespace tidemark::shell {

class ShownResults {
 public:
  // A calculation on the data set `set_name` ended; `output` is what it wrote.
  void calculated(bool ok, const ModeOutput& output, const std::string& set_name);

  // The stored results of data set `set_name` were recalled: listing and graph are its.
  void recalled(const std::string& set_name);

  // For COPY_LST and SAVE_AS_LST (the listing) and COPY_GRF, SAVE_GRF_* (the graph) after
  // a failed calculation that did not write what they copy: "The results shown belong to
  // an earlier calculation, on data set a.dat: the last calculation, on data set b.dat,
  // failed." Empty for any other command, or when there is nothing to say.
  std::string earlier_results_line(std::string_view command) const;

 private:
  struct Owner {
    std::string set_name;      // the data set whose calculation wrote it
    bool by_failed = false;    // written by the last calculation, which failed
  };
  std::optional<Owner> listing_;
  std::optional<Owner> graph_;
  std::optional<std::string> failed_on_;  // the last calculation's data set, when it failed
};

}  // namespace tidemark::shell
