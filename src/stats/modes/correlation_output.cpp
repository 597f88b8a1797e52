#include "stats/modes/correlation_output.h"

#include "core/file_replace.h"

namespace tidemark::stats {

shell::Outcome write_listing_and_graph(shell::ModuleContext& c, const std::string& listing,
                                       const std::string& graph) {
  for (const auto& [path, text] : {std::pair{&c.listing, &listing}, std::pair{&c.graph, &graph}}) {
    const auto written = core::replace_file(*path, *text);
    if (!written.ok) return shell::Outcome::error({written.message});
  }
  return shell::Outcome::success();
}

}  // namespace tidemark::stats
