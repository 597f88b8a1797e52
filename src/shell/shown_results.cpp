#include "shell/shown_results.h"

#include "shell/command_text.h"

namespace tidemark::shell {

void ShownResults::calculated(bool ok, const ModeOutput& output, const std::string& set_name) {
  failed_on_ = ok ? std::nullopt : std::optional<std::string>(set_name);
  if (output.listing) listing_ = Owner{set_name, !ok};
  if (output.graph) graph_ = Owner{set_name, !ok};
  if (ok) return;
  // What the failed calculation did not write is still an earlier calculation's.
  if (!output.listing && listing_) listing_->by_failed = false;
  if (!output.graph && graph_) graph_->by_failed = false;
}

void ShownResults::recalled(const std::string& set_name) {
  listing_ = Owner{set_name, false};
  graph_ = Owner{set_name, false};
}

std::string ShownResults::earlier_results_line(std::string_view command) const {
  if (!failed_on_) return {};
  const bool listing = command_is(command, "COPY_LST") || command_is(command, "SAVE_AS_LST");
  const bool graph = command_is(command, "COPY_GRF") || command_is(command, "SAVE_GRF_");
  if (!listing && !graph) return {};
  const std::optional<Owner>& owner = listing ? listing_ : graph_;
  if (!owner || owner->by_failed) return {};
  return "The results shown belong to an earlier calculation, on data set " + owner->set_name +
         ": the last calculation, on data set " + *failed_on_ + ", failed.";
}

}  // namespace tidemark::shell
