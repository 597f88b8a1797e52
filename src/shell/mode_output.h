#pragma once
// The one output path of the modes. A calculation hands back what it produced as a
// ModeOutput; the module frame writes it: the listing (temp/LIST_<id>.lst) and the graph
// source (the run's GRF_<id>.grf) are replaced, the answers block is appended to the
// run's BST_<id>.BST, the log lines are logged, the summary-book cells, the model
// parameters and the secretion events go onto the data set the calculation ran on, and a
// written graph is shown.
#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "data/dataset.h"
#include "data/secretion_events.h"
#include "data/summary_row.h"
#include "ui/log_sink.h"
#include "ui/ui.h"

namespace tidemark::shell {

struct ModeOutput {
  std::optional<std::string> listing{};  // the whole listing; none leaves the file as it is
  std::optional<std::string> graph{};    // the graph source; none leaves the graph as it is
  std::string answers{};                 // appended to the answers file as it is
  std::vector<std::string> log_lines{};  // one log line each, in order
  data::SummaryRow summary{};            // cells put into the data set's summary row
  // The data set's secretion events are replaced by these, when present.
  std::optional<std::vector<data::SecretionEvent>> events{};
  // The index in the store of the data set the summary cells and events go on, when it
  // is not the current one (SRQuant's output data set).
  std::optional<int> data_set{};
  // The data set's model parameters (answers 1..8) are replaced by these, when present.
  std::optional<std::array<double, data::kModelParameterCount>> model_parameters{};

  // True when the calculation produced nothing to write.
  bool empty() const {
    return !listing && !graph && answers.empty() && log_lines.empty() && summary.empty() &&
           !events && !model_parameters;
  }
};

// Where the output goes.
struct OutputTargets {
  const std::filesystem::path& listing;
  const std::filesystem::path& graph;
  const std::filesystem::path& answers;
  data::DataSet* data_set;  // null: the summary cells and events go nowhere
  ui::LogSink& log;
  ui::Ui& ui;
};

// What went wrong in writing: one line per file that could not be written, naming it
// and the reason. Everything else was still written.
struct OutputResult {
  std::vector<std::string> message;
  bool ok() const { return message.empty(); }
};

// Writes `output`, in this order: listing, graph, answers, summary cells, model
// parameters, events, log lines; then shows the graph when one was written.
[[nodiscard]] OutputResult write_output(const ModeOutput& output, const OutputTargets& to);

}  // namespace tidemark::shell
