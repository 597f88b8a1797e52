#include "render/legend_rows.h"

#include <algorithm>

#include "render/layout.h"
#include "render/text.h"

namespace tidemark::render {

double legend_row_height(cairo_t* cr, const RenderOptions& options) {
  use_font(cr, options, Role::kNote);
  return 1.35 * line_height(cr);
}

LegendRows legend_rows(cairo_t* cr, const graphics::Panel& panel, const RenderOptions& options,
                       double width) {
  LegendRows out;
  out.row_height = legend_row_height(cr, options);
  std::vector<double> row_widths;
  for (std::size_t i = 0; i < panel.series.size(); ++i) {
    if (panel.series[i].name.empty()) continue;
    const double w = kLegendSample + kGap + text_width(cr, panel.series[i].name);
    const bool fits = !row_widths.empty() && row_widths.back() + kLegendSpacing + w <= width;
    if (fits) {
      out.entries.push_back({i, row_widths.back() + kLegendSpacing, out.rows - 1});
      row_widths.back() += kLegendSpacing + w;
    } else {
      out.entries.push_back({i, 0, out.rows++});
      row_widths.push_back(w);
    }
  }
  // Each row centred under the area.
  for (LegendEntry& e : out.entries) {
    e.x += std::max(0.0, (width - row_widths[static_cast<std::size_t>(e.row)]) / 2);
  }
  return out;
}

}  // namespace tidemark::render
