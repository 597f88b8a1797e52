#pragma once
// The results a mode's calculations left on show (listing, graph source, the dialog's
// read-only result fields, the summary-book cells, model parameters and secretion events
// put on the data set), and the set STORE_RESULTS keeps aside, which RECALL_RESULTS brings back. The
// module frame keeps them for every mode alike, from what the output path wrote.
#include <optional>
#include <string>
#include <vector>

#include "data/store.h"
#include "shell/mode_output.h"
#include "ui/dialog.h"

namespace tidemark::shell {

class KeptResults {
 public:
  // Takes in what a calculation wrote: `output` on data set `set_index` (-1 for none)
  // of `store`, with the dialog's values after it. What the output leaves out (a failed
  // run's graph) stays as it was shown.
  void take(const ModeOutput& output, const data::Store& store, int set_index,
            const std::vector<ui::FieldValue>& values);

  // The file name of the data set whose results are on show; empty when none are.
  std::string shown_set_name() const { return shown_ ? shown_->set_name : std::string(); }

  // Keeps the results on show aside; false when there are none.
  bool store();

  // Brings the kept results back on show: rewrites the listing and the graph source,
  // puts the summary cells, model parameters and events back on their data set (when it is still loaded
  // under the same name) and the result fields into `values`. False when none were
  // kept; else the output path's result.
  std::optional<OutputResult> recall(const OutputTargets& to, data::Store& store,
                                     const ui::Dialog& dialog, std::vector<ui::FieldValue>& values);

 private:
  struct Shown {
    ModeOutput output;  // without answers and log lines, which are written once
    int set_index = -1;
    std::string set_name;
    std::vector<ui::FieldValue> fields;  // every field; only the read-only ones come back
  };
  std::optional<Shown> shown_;
  std::optional<Shown> kept_;
};

}  // namespace tidemark::shell
