#include "stats/modes/apen_graph.h"

#include <fmt/format.h>

#include <span>

#include "core/fortran_format.h"
#include "core/text.h"
#include "graphics/common_options.h"
#include "stats/modes/apen_listing.h"

namespace tidemark::stats {

std::string apen_graph_source(const data::DataSet& set, const ApEnResult& result) {
  graphics::PlotWriter w;
  w.page("Approximate Entropy");
  w.panel(set.handle);
  w.x_axis({.label = set.headers[data::kX].empty() ? "TIME" : set.headers[data::kX]});
  const auto first = static_cast<std::size_t>(set.first_point() - 1);
  const auto count = static_cast<std::size_t>(set.last_point() - set.first_point() + 1);
  const auto crop = [&](const std::vector<float>& column) {
    return std::span<const float>(column).subspan(first, count);
  };
  graphics::write_common_options(
      w, {.y_label = set.concentration_header(),
          .file_name = set.file_name,
          .handle = set.handle,
          .x = crop(set.x()),
          .y = crop(set.y()),
          .sd = crop(set.dy())});
  for (std::size_t m = 0; m < 2; ++m) {
    w.note(fmt::format("ApEn({}) = {}   P for Random = {}", m + 1,
                       core::trim(apen_value(result.m[m].apen)),
                       core::trim(apen_value(result.m[m].p))));
  }
  return w.text();
}

}  // namespace tidemark::stats
