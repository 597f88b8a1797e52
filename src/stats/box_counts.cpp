#include "stats/box_counts.h"

#include <algorithm>

namespace tidemark::stats {
namespace {

// Sums over positions 0 .. n-1 with single-position updates, O(log n) each.
class Fenwick {
 public:
  explicit Fenwick(std::size_t n) : tree_(n + 1, 0) {}

  void add(std::int32_t position, std::int32_t delta) {
    for (std::size_t k = static_cast<std::size_t>(position) + 1; k < tree_.size(); k += k & -k) {
      tree_[k] += delta;
    }
  }

  // The sum over positions [lo, hi).
  std::int32_t range(std::int32_t lo, std::int32_t hi) const { return prefix(hi) - prefix(lo); }

 private:
  std::int32_t prefix(std::int32_t end) const {
    std::int32_t sum = 0;
    for (std::size_t k = static_cast<std::size_t>(end); k > 0; k -= k & -k) sum += tree_[k];
    return sum;
  }

  std::vector<std::int32_t> tree_;
};

// A partner template (a point) or one signed corner of a query box. Keys order the
// events along a coordinate so that a point comes before exactly the thresholds above
// it: a point at position p has key 2p + 1, a threshold x (counting the points at
// positions below x) has key 2x. The last coordinate is not keyed: a point keeps its
// position in `lo`, a query its run [lo, hi).
struct Event {
  std::int32_t key0 = 0;  // first coordinate (m = 3 only)
  std::int32_t key1 = 0;  // the coordinate before the last
  std::int32_t lo = 0;
  std::int32_t hi = 0;
  std::int32_t target = -1;  // the query template whose count the event changes; -1: a point
  std::int32_t sign = 0;
};

constexpr std::int32_t point_key(std::int32_t position) {
  return 2 * position + 1;
}
constexpr std::int32_t threshold_key(std::int32_t threshold) {
  return 2 * threshold;
}

// Stable counting sort of events by key0 or key1, keys 0 .. 2U + 1.
template <std::int32_t Event::*Key>
void sort_by(std::vector<Event>& events, std::size_t ranked, std::vector<Event>& scratch) {
  std::vector<std::int32_t> start(2 * ranked + 3, 0);
  for (const Event& e : events) ++start[static_cast<std::size_t>(e.*Key) + 1];
  for (std::size_t k = 1; k < start.size(); ++k) start[k] += start[k - 1];
  scratch.resize(events.size());
  for (const Event& e : events) scratch[static_cast<std::size_t>(start[e.*Key]++)] = e;
  events.swap(scratch);
}

// The sweep step shared by both lengths: a point enters the tree at its last
// coordinate; a query corner adds the points already entered whose last coordinate
// lies in its run.
inline void visit(const Event& e, Fenwick& tree, std::vector<std::int32_t>& counts) {
  if (e.target < 0) {
    tree.add(e.lo, 1);
  } else {
    counts[static_cast<std::size_t>(e.target)] += e.sign * tree.range(e.lo, e.hi);
  }
}

// Segments this short are solved pair by pair rather than split further.
constexpr std::size_t kLeaf = 24;

// Divide and conquer over key0 (the events of [first, last) are in key0 order): the
// points of the first half are counted into the query corners of the second half by a
// key1 sweep, each half is solved recursively, and the segment leaves in key1 order.
class Conquer {
 public:
  Conquer(std::vector<Event>& events, std::size_t ranked, std::vector<std::int32_t>& counts)
      : events_(events), tree_(ranked), counts_(counts), merged_(events.size()) {}

  void solve(std::size_t first, std::size_t last) {
    if (last - first <= kLeaf) {
      solve_leaf(first, last);
      return;
    }
    const std::size_t middle = first + (last - first) / 2;
    solve(first, middle);
    solve(middle, last);
    std::size_t left = first;
    std::size_t right = middle;
    std::size_t out = first;
    while (left < middle || right < last) {
      const bool take_left =
          right == last || (left < middle && events_[left].key1 < events_[right].key1);
      const Event& e = events_[take_left ? left++ : right++];
      if (take_left == (e.target < 0)) visit(e, tree_, counts_);
      merged_[out++] = e;
    }
    for (std::size_t k = first; k < middle; ++k) {
      if (events_[k].target < 0) tree_.add(events_[k].lo, -1);
    }
    std::copy(merged_.begin() + static_cast<std::ptrdiff_t>(first),
              merged_.begin() + static_cast<std::ptrdiff_t>(last),
              events_.begin() + static_cast<std::ptrdiff_t>(first));
  }

 private:
  void solve_leaf(std::size_t first, std::size_t last) {
    for (std::size_t q = first; q < last; ++q) {
      const Event& query = events_[q];
      if (query.target < 0) continue;
      std::int32_t inside = 0;
      for (std::size_t p = first; p < q; ++p) {
        const Event& point = events_[p];
        inside += point.target < 0 && point.key1 < query.key1 && point.lo >= query.lo &&
                  point.lo < query.hi;
      }
      counts_[static_cast<std::size_t>(query.target)] += query.sign * inside;
    }
    std::sort(events_.begin() + static_cast<std::ptrdiff_t>(first),
              events_.begin() + static_cast<std::ptrdiff_t>(last),
              [](const Event& a, const Event& b) { return a.key1 < b.key1; });
  }

  std::vector<Event>& events_;
  Fenwick tree_;
  std::vector<std::int32_t>& counts_;
  std::vector<Event> merged_;
};

bool empty_run(std::span<const std::int32_t> lo, std::span<const std::int32_t> hi, std::size_t t) {
  return lo[t] >= hi[t];
}

// The points and query corners of length m (2 or 3). A query template with an empty
// run has no partner and no events; corners at threshold 0 count nothing and are left
// out.
std::vector<Event> events_of(std::span<const std::int32_t> rank, std::span<const std::int32_t> lo,
                             std::span<const std::int32_t> hi, std::size_t m) {
  std::vector<Event> events;
  for (std::size_t j = 0; j + m <= rank.size(); ++j) {
    if (rank[j] < 0 || rank[j + 1] < 0 || (m == 3 && rank[j + 2] < 0)) continue;
    Event point;
    point.key0 = point_key(rank[j]);
    point.key1 = point_key(rank[j + m - 2]);
    point.lo = rank[j + m - 1];
    events.push_back(point);
  }
  for (std::size_t i = 0; i + m <= lo.size(); ++i) {
    bool empty = false;
    for (std::size_t k = 0; k < m; ++k) empty = empty || empty_run(lo, hi, i + k);
    if (empty) continue;
    const std::size_t last = i + m - 1;
    // The first coordinate's corners (m = 3), then the second-to-last one's.
    const std::int32_t ends0[2] = {lo[i], hi[i]};
    const std::int32_t ends1[2] = {lo[last - 1], hi[last - 1]};
    for (int a = m == 3 ? 0 : 1; a < 2; ++a) {
      for (int b = 0; b < 2; ++b) {
        if ((m == 3 && ends0[a] == 0) || ends1[b] == 0) continue;
        Event corner;
        corner.key0 = m == 3 ? threshold_key(ends0[a]) : 0;
        corner.key1 = threshold_key(ends1[b]);
        corner.lo = lo[last];
        corner.hi = hi[last];
        corner.target = static_cast<std::int32_t>(i);
        corner.sign = (m == 3 && a == 0 ? -1 : 1) * (b == 0 ? -1 : 1);
        events.push_back(corner);
      }
    }
  }
  return events;
}

}  // namespace

BoxCounts count_in_boxes(std::span<const std::int32_t> rank, std::span<const std::int32_t> lo,
                         std::span<const std::int32_t> hi) {
  const std::size_t ranked = static_cast<std::size_t>(
      std::count_if(rank.begin(), rank.end(), [](std::int32_t p) { return p >= 0; }));
  BoxCounts counts;
  for (std::size_t m = 1; m <= 3; ++m) {
    counts[m - 1].assign(lo.size() >= m ? lo.size() - m + 1 : 0, 0);
  }
  for (std::size_t i = 0; i < lo.size(); ++i) counts[0][i] = std::max(hi[i] - lo[i], 0);

  std::vector<Event> scratch;
  std::vector<Event> events = events_of(rank, lo, hi, 2);
  sort_by<&Event::key1>(events, ranked, scratch);
  Fenwick tree(ranked);
  for (const Event& e : events) visit(e, tree, counts[1]);

  events = events_of(rank, lo, hi, 3);
  sort_by<&Event::key0>(events, ranked, scratch);
  std::vector<Event>().swap(scratch);  // the divide and conquer has its own
  Conquer(events, ranked, counts[2]).solve(0, events.size());
  return counts;
}

}  // namespace tidemark::stats
