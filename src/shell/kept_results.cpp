#include "shell/kept_results.h"

namespace tidemark::shell {

void KeptResults::take(const ModeOutput& output, const data::Store& store, int set_index,
                       const std::vector<ui::FieldValue>& values) {
  if (output.empty()) return;
  if (!shown_) shown_ = Shown{};
  Shown& shown = *shown_;
  const std::string name = set_index >= 0 ? store.at(set_index).file_name : std::string();
  if (set_index != shown.set_index || name != shown.set_name) {
    shown.output.summary.clear();
    shown.output.events.reset();
    shown.output.model_parameters.reset();
  }
  shown.set_index = set_index;
  shown.set_name = name;
  if (output.listing) shown.output.listing = output.listing;
  if (output.graph) shown.output.graph = output.graph;
  for (const auto& [column, cell] : output.summary) shown.output.summary[column] = cell;
  if (output.events) shown.output.events = output.events;
  if (output.model_parameters) shown.output.model_parameters = output.model_parameters;
  shown.fields = values;
}

bool KeptResults::store() {
  if (!shown_) return false;
  kept_ = shown_;
  return true;
}

std::optional<OutputResult> KeptResults::recall(const OutputTargets& to, data::Store& store,
                                                const ui::Dialog& dialog,
                                                std::vector<ui::FieldValue>& values) {
  if (!kept_) return std::nullopt;
  shown_ = kept_;
  const bool set_loaded = kept_->set_index >= 0 && kept_->set_index < store.count() &&
                          store.at(kept_->set_index).file_name == kept_->set_name;
  OutputTargets targets = to;
  targets.data_set = set_loaded ? &store.at(kept_->set_index) : nullptr;
  for (std::size_t i = 0; i < dialog.fields.size() && i < kept_->fields.size(); ++i) {
    if (dialog.fields[i].read_only) values[i] = kept_->fields[i];
  }
  return write_output(kept_->output, targets);
}

}  // namespace tidemark::shell
