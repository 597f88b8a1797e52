// Rows per second importing a lab's CSV export held in memory: 100,000 rows of a long
// file (subject, time, LH with decimal commas, some cells missing) split into 100 data
// sets, and the splitting into cells alone.
#include <benchmark/benchmark.h>

#include <string>

#include "data/csv_import.h"
#include "data/csv_table.h"

namespace {

constexpr int kRows = 100000;

std::string long_file() {
  std::string text = "subject;min;LH;LH_se\n";
  for (int i = 0; i < kRows; ++i) {
    text += "S" + std::to_string(i % 100) + ";" + std::to_string(i / 100 * 10) + ";" +
            (i % 17 == 0 ? std::string("NA") : std::to_string(2 + i % 9) + ",25") + ";0,1\n";
  }
  return text;
}

void BM_CsvImportLong(benchmark::State& state) {
  const std::string text = long_file();
  tidemark::data::CsvImportOptions options;
  options.subject = "subject";
  options.conc = {"LH"};
  options.sem = {"LH_se"};
  for (auto _ : state) {
    const auto r = tidemark::data::import_csv(text, "bench.csv", options);
    if (!r.ok() || r.sets.size() != 100) state.SkipWithError("import failed");
    benchmark::DoNotOptimize(r.sets.data());
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_CsvImportLong)->Unit(benchmark::kMillisecond);

void BM_CsvSplit(benchmark::State& state) {
  const std::string text = long_file();
  for (auto _ : state) {
    const auto t = tidemark::data::split_csv(text);
    benchmark::DoNotOptimize(t.rows.data());
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_CsvSplit)->Unit(benchmark::kMillisecond);

}  // namespace
