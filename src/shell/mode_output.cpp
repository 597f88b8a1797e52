#include "shell/mode_output.h"

#include <fstream>

#include "core/file_replace.h"

namespace tidemark::shell {

namespace {

// Replaces `file` with `text`, when there is one; false when it could not be written.
bool replace(const std::filesystem::path& file, const std::optional<std::string>& text,
             std::string_view what, OutputResult& result) {
  if (!text) return false;
  const core::ReplaceResult written = core::replace_file(file, *text);
  if (!written.ok()) {
    result.message.push_back("The " + std::string(what) + " was not written. " + written.message);
  }
  return written.ok();
}

void append(const std::filesystem::path& file, const std::string& text, OutputResult& result) {
  if (text.empty()) return;
  std::ofstream out(file, std::ios::app | std::ios::binary);
  out << text;
  out.flush();
  if (!out) {
    result.message.push_back("The answers were not written. Cannot append to " + file.string());
  }
}

}  // namespace

OutputResult write_output(const ModeOutput& output, const OutputTargets& to) {
  OutputResult result;
  replace(to.listing, output.listing, "listing", result);
  const bool graph_written = replace(to.graph, output.graph, "graph", result);
  append(to.answers, output.answers, result);
  if (to.data_set != nullptr) {
    for (const auto& [column, cell] : output.summary) to.data_set->summary[column] = cell;
    if (output.model_parameters) data::set_model_parameters(*to.data_set, *output.model_parameters);
    if (output.events) data::set_secretion_events(*to.data_set, *output.events);
  }
  for (const std::string& line : output.log_lines) to.log.log(line);
  if (graph_written) to.ui.show_graph(to.graph.string());
  return result;
}

}  // namespace tidemark::shell
