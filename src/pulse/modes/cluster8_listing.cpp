#include "pulse/modes/cluster8_listing.h"

#include <algorithm>
#include <cmath>

#include "core/fortran_format.h"

namespace tidemark::pulse {
namespace {

using core::format_f;
using core::format_g15_5;
using core::format_i;

constexpr int kChartWidth = 45;

std::string flag(char set) {
  return set ? " T" : " F";
}

void add(std::string& out, const std::string& line) {
  out += line + "\n";
}

void grid_notes(std::string& out, const Cluster8Grid& g) {
  for (const GridNote& n : g.notes) {
    switch (n.kind) {
      case GridNote::kMissing:
        add(out, " Missing data point " + format_i(n.point, 5) +
                     " at time = " + format_f(n.time, 10, 2));
        break;
      case GridNote::kAdded:
        add(out,
            " Data Point " + format_i(n.point, 5) + " Added at time = " + format_f(n.time, 9, 1));
        break;
      case GridNote::kTooManyMissing:
        add(out, " Too many missing points at time= " + format_f(n.time, 9, 3));
        break;
    }
  }
}

void pass_parameters(std::string& out, const Cluster8Result& r, const Cluster8Settings& s,
                     std::string_view file_name) {
  add(out, "  Cluster Program Version" + std::string(kCluster8Version) + " on " +
               std::string(file_name));
  add(out, "  Mean Value = " + format_g15_5(r.grid_mean));
  add(out, "  Total Area = " + format_g15_5(r.total_area));
  add(out, "1 PASS TWO -- UPS");
  add(out, "  NADIR size = " + format_i(s.nadir_size, 5));
  add(out, "  PEAK SIZE = " + format_i(s.peak_size, 5));
  add(out, "  MINUMUM T-SCORE FOR INCREASE = " + format_f(s.t_up, 10, 3));
  add(out, " Minimum Data Value for a Pulse =" + format_g15_5(s.min_peak));
  add(out, "  MINUMUM T-SCORE FOR DECREASE = " + format_f(s.t_down, 10, 3));
}

void point_table(std::string& out, const Cluster8Result& r) {
  const Cluster8Grid& g = r.grid;
  float lo = 1.0e20f;
  float hi = -1.0e20f;
  for (int j = 1; j <= g.n; ++j) {
    lo = std::min(lo, g.mean[j] - g.stdev[j]);
    hi = std::max(hi, g.mean[j] + g.stdev[j]);
  }
  add(out, "PASS FOUR RESULTS");
  add(out, "   N   TIME     MEAN     S.D.   PULSE");
  for (int j = 1; j <= g.n; ++j) {
    add(out, format_i(j, 5) + format_f(g.times[j], 7, 1) + format_f(g.mean[j], 9, 3) +
                 format_f(g.stdev[j], 8, 3) + flag(r.up[j]) + flag(r.down[j]) + " " +
                 strip_chart(g.mean[j], g.stdev[j], lo, hi, r.pulse[j]));
  }
}

void parameter_block(std::string& out, const Cluster8Settings& s) {
  add(out, " MINIMUM SIZE OF PEAK = " + format_i(s.peak_size, 5));
  add(out, " MINIMUM SIZE OF NADIR = " + format_i(s.nadir_size, 5));
  add(out, " T-SCORE TO DETECT UPWARD PEAK   = " + format_f(s.t_up, 10, 2));
  add(out, " T-SCORE TO DETECT DOWNWARD PEAK = " + format_f(s.t_down, 10, 2));
  add(out, " MINIMUM DATA VALUE FOR A PEAK   = " + format_f(s.min_peak, 10, 2));
}

std::string span_of(int position, int start, int end) {
  return format_i(position, 5) + " (" + format_i(start, 5) + "-" + format_i(end, 5) + ")";
}

void summary_line(std::string& out, const char* label, const OptionalSummary& s) {
  if (s) add(out, label + format_f(s->mean, 10, 3) + " +/- " + format_f(s->sd, 10, 3));
}

void peak_table(std::string& out, const Cluster8Result& r) {
  add(out, "PEAKS");
  add(out, "       POSITION     WIDTH   LARGEST LARGEST% MEAN%    AREA  L INCREASE");
  for (const Cluster8Peak& p : r.peaks) {
    add(out, span_of(p.position, p.start, p.end) + format_f(p.width, 8, 1) +
                 format_f(p.largest, 9, 3) + format_f(p.largest_percent, 8, 1) +
                 format_f(p.mean_percent, 8, 1) + format_f(p.area, 9, 3) +
                 format_f(p.increase, 9, 3));
  }
  add(out, " FOUND " + format_i(static_cast<long long>(r.peaks.size()), 5) + " PEAKS");
  if (!r.peak_summary) return;
  const Cluster8PeakSummary& s = *r.peak_summary;
  summary_line(out, " MEAN INTERVAL BETWEEN PEAKS = ", s.interval);
  summary_line(out, " MEAN PEAK WIDTH = ", s.width);
  summary_line(out, " PEAK HEIGHT = ", s.height);
  summary_line(out, " PEAK HEIGHT AS % INCREASE = ", s.height_percent);
  summary_line(out, " MEAN PEAK HEIGHT AS % INCREASE = ", s.mean_percent);
  summary_line(out, " AREA = ", s.area);
  summary_line(out, " MEAN LARGEST VALUE AS INCREASE ABOVE BASAL = ", s.increase);
}

void valley_table(std::string& out, const Cluster8Result& r) {
  add(out, "VALLEYS");
  add(out, "       POSITION      WIDTH    NADIR    MEAN");
  for (const Cluster8Valley& v : r.valleys) {
    add(out, span_of(v.position, v.start, v.end) + format_f(v.width, 9, 1) +
                 format_f(v.nadir, 9, 3) + format_f(v.mean, 9, 3));
  }
  add(out, " FOUND " + format_i(static_cast<long long>(r.valleys.size()), 5) + " VALLEYS");
  if (!r.valley_summary) return;
  summary_line(out, " AVERAGE VALLEY WIDTH = ", r.valley_summary->width);
  summary_line(out, " AVERAGE VALLEY MEAN LEVEL = ", r.valley_summary->mean);
  summary_line(out, " AVERAGE NADIR = ", r.valley_summary->nadir);
}

void point_list(std::string& out, const char* label, const std::vector<int>& points) {
  std::string line = label;
  for (int p : points) line += format_i(p, 5);
  add(out, line);
}

}  // namespace

std::string strip_chart(float mean, float sd, float lo, float hi, bool in_pulse) {
  std::string chart(kChartWidth, ' ');
  const float range = hi - lo;
  for (const float x : {mean, mean + sd, mean - sd}) {
    const float place = range > 0.0f ? (x - lo) / range * 44.0f + 1.01f : 1.0f;
    const int column = std::isfinite(place) ? static_cast<int>(std::clamp(place, 1.0f, 45.0f)) : 1;
    chart[static_cast<std::size_t>(column - 1)] = '*';
  }
  return chart + " *" + (in_pulse ? "**" : "  ");
}

std::string cluster8_listing(const Cluster8Result& r, const Cluster8Settings& s,
                             std::string_view file_name) {
  std::string out;
  const std::string data_set = " Data set " + std::string(file_name);
  if (r.stop == Cluster8Stop::kBadSettings || r.stop == Cluster8Stop::kBadTimes) {
    add(out, " " + r.message);
    add(out, data_set);
    return out;
  }
  add(out, "Time Between Data Points = " + format_f(r.grid.dt, 10, 2));
  grid_notes(out, r.grid);
  if (r.stop == Cluster8Stop::kTooManyMissing) {
    add(out, data_set);
    return out;
  }
  pass_parameters(out, r, s, file_name);
  if (r.stop == Cluster8Stop::kTooFewPoints) {
    add(out, " " + r.message);
    return out;
  }
  point_table(out, r);
  parameter_block(out, s);
  peak_table(out, r);
  valley_table(out, r);
  point_list(out, " Questionable Outliers Near Point numbers:", r.outliers.questionable);
  point_list(out, " Probable Outliers Near Point numbers:", r.outliers.probable);
  return out;
}

}  // namespace tidemark::pulse
