#include "stats/modes/concordance_report.h"

#include <fmt/format.h>

#include "core/fortran_format.h"

namespace tidemark::stats {
namespace {

std::string g15_3(double v) {
  return core::format_g(v, 15, 3, 0, 1);
}

std::string series_line(std::string_view name, const ConcordanceSeries& s) {
  return fmt::format(" {}: {}\n", name, series_description(s));
}

}  // namespace

std::string series_description(const ConcordanceSeries& s) {
  return fmt::format("{}{} points{} peaks", s.file_name, core::format_i(s.points, 5),
                     core::format_i(static_cast<long long>(s.events.size()), 5));
}

std::string concordance_listing(const ConcordanceReport& r) {
  std::string out = "Monte-Carlo Concordance Calculation\n\n";
  out += series_line("Series A", r.a) + series_line("Series B", r.b);
  out += fmt::format(" A coincidence range of {} to {} yielded{} coincidence peaks\n",
                     g15_3(r.range.lo), g15_3(r.range.hi),
                     core::format_i(static_cast<long long>(r.pairs.size()), 5));
  out += fmt::format(" Monte-Carlo cycles: {}\n\n", core::format_i(r.cycles, 10));
  for (std::size_t k = 0; k < r.table.p.size(); ++k) {
    const auto i = core::format_i(static_cast<long long>(k), 3);
    out += fmt::format(" P(#events={}) = {}\n", i, g15_3(r.table.p[k]));
    out += fmt::format(" P(#events>={}) = {}\n", i, g15_3(r.table.q[k]));
  }
  return out;
}

std::vector<std::string> concordance_grid_rows(const ProbabilityTable& table) {
  std::vector<std::string> rows;
  for (std::size_t k = 0; k < table.p.size(); ++k)
    rows.push_back(fmt::format("P({:3d})={:6.4f}        Sum Q={:6.4f}", k, table.p[k], table.q[k]));
  return rows;
}

}  // namespace tidemark::stats
