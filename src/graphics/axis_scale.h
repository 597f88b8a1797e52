#pragma once
// The range and ticks of an axis, from its settings in the source and the extent of
// the data drawn against it. Pure arithmetic: the renderer only maps and draws.
//
// Linear, automatic: the data range widened by 4 % of its span on each side (a single
// value v by 10 % of |v|, or 1 when v = 0), ticks at multiples of a step of 1, 2 or 5
// times a power of ten giving 4 to 10 ticks. Log, automatic: the positive data rounded
// outwards to whole decades (1 to 10 when there are none); ticks at the decades, with
// minor ticks at 2..9 when the axis spans at most 6 decades and labels at 2 and 5 when
// it spans fewer than 3. A given step that would make more than kMaxTicks ticks is
// replaced by the automatic one, so no range makes the tick loop long; a fixed range
// that cannot be drawn (an end beyond 1e300, or not positive on a log axis) is ignored.
#include <string>
#include <vector>

#include "graphics/plot_writer.h"

namespace tidemark::graphics {

// True when `v` can be placed on an axis of `scale`: finite, not missing, at most 1e300
// in size and, on a log axis, positive.
bool drawable_on(Scale scale, double v);

// The smallest and largest drawable value seen: finite, at most 1e300 in size and,
// for a log axis, positive; others are left out.
class Extent {
 public:
  explicit Extent(Scale scale) : scale_(scale) {}
  void add(double v);
  bool empty() const { return low_ > high_; }
  double low() const { return low_; }
  double high() const { return high_; }
  // True when `v` can be placed on this axis.
  bool drawable(double v) const { return drawable_on(scale_, v); }

 private:
  Scale scale_;
  double low_ = 1;
  double high_ = 0;
};

struct Tick {
  double value = 0;
  std::string label{};  // empty for a minor tick and an unlabelled decade
  bool major = true;
};

struct AxisScale {
  Scale scale = Scale::kLinear;
  double low = 0;
  double high = 1;
  std::vector<Tick> ticks{};

  // Where `v` lies along the axis: 0 at low, 1 at high, linear in v or in log10(v).
  double fraction(double v) const;
};

inline constexpr int kMaxTicks = 200;
// How much closer than `max_labels` asks the labels of a short linear axis may stand so
// that it shows three of them (-1, 0 and 1 rather than 0 alone).
inline constexpr double kCrowding = 1.7;

// The scale of an axis with `axis_spec` over `data`. `max_labels` is how many tick labels
// fit along the axis at a comfortable spacing: the automatic step then aims at at most
// that many (and at 6 when more fit), and a log axis labels every n-th decade so as to
// stay within it. An automatic linear step that leaves fewer than three labels is made
// finer (2 to 1, 5 to 2, 1 to 0.5) as long as the step stays at least
// span / (kCrowding * max_labels), i.e. the labels at least 1 / kCrowding of that spacing
// apart.
//
// `headroom` is the fraction of an automatic axis (at most a half) kept free above the
// data, raising its top when the padding leaves less: room for the labels of vertical
// markers, which stand at the top of the plot area.
AxisScale make_axis_scale(const AxisSpec& axis_spec, const Extent& data, double max_labels = 10,
                          double headroom = 0);

// A tick label: fixed notation when the axis's values lie within 1e-4 and 1e6, else
// "m×10ⁿ"; `step` sets the decimals shown.
std::string tick_label(double v, double step, double largest);

}  // namespace tidemark::graphics
