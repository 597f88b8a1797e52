// Conditioning speed on long series: regular, with gaps to repair, and unsorted.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

#include "data/conditioner.h"
#include "ui/console_ui.h"

namespace {

using tidemark::data::DataSet;
constexpr int kPoints = 100000;

enum class Shape { kRegular, kGaps, kGapsUnsorted };

// About kPoints points every 10 minutes with a varying coefficient of variation. With
// gaps, one grid slot in a hundred is dropped (a single gap) and two consecutive slots
// in another hundred (a double gap); unsorted shuffles the points.
DataSet make_series(Shape shape) {
  DataSet set;
  for (int slot = 0; set.size() < kPoints; ++slot) {
    const int phase = slot % 100;
    if (shape != Shape::kRegular && (phase == 30 || phase == 70 || phase == 71)) continue;
    const float y = 50 + float(slot % 17);
    set.push_point({10.0f * float(slot), y, 1 + 0.01f * float(slot % 13), 2, 0, 0, 0, 0});
  }
  if (shape == Shape::kGapsUnsorted) {
    std::vector<int> order(kPoints);
    for (int i = 0; i < kPoints; ++i) order[i] = i;
    std::shuffle(order.begin(), order.end(), std::mt19937(12345));
    DataSet shuffled = set;
    for (auto& column : shuffled.columns) column.clear();
    for (int i : order) {
      for (int c = 0; c < tidemark::data::kColumnCount; ++c) {
        shuffled.columns[c].push_back(set.columns[c][i]);
      }
    }
    set = shuffled;
  }
  return set;
}

void BM_Condition(benchmark::State& state, Shape shape) {
  const DataSet original = make_series(shape);
  for (auto _ : state) {
    state.PauseTiming();
    DataSet set = original;
    tidemark::ui::RecordingUi ui;
    tidemark::ui::MemoryLog log;
    state.ResumeTiming();
    const auto result = tidemark::data::condition(set, true, ui, log);
    if (!result.ok()) state.SkipWithError(result.message.c_str());
    benchmark::DoNotOptimize(set.x().data());
  }
  state.SetItemsProcessed(state.iterations() * kPoints);
}

BENCHMARK_CAPTURE(BM_Condition, regular, Shape::kRegular)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Condition, gaps, Shape::kGaps)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Condition, gaps_unsorted, Shape::kGapsUnsorted)->Unit(benchmark::kMillisecond);

}  // namespace
