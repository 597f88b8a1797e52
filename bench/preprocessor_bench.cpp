// Lines per second through the preprocessor for a native-mode data file of 100,000
// lines: typical data lines, two symbols, a conditional block and a few comments.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "graphics/preprocessor.h"

namespace {

constexpr int kLines = 100000;

// Writes the data file once and removes it at exit.
class DataFile {
 public:
  DataFile() : path_(std::filesystem::temp_directory_path() / "tidemark_pp_bench.dat") {
    std::ofstream out(path_);
    out << "; bench series\n#define CV 0.231\n#define REPS 2\n#ifdef __MS_WINDOWS__ \n";
    char line[64];
    for (int i = 4; i < kLines - 1; ++i) {
      if (i % 1000 == 0) {
        out << "; block " << i << "\n";
      } else if (i % 5000 == 1) {
        out << "   " << i << ".000   4.523   CV   REPS\n";
      } else {
        std::snprintf(line, sizeof line, "%9.3f %7.3f %7.3f   2\n", i * 10.0,
                      4.0 + (i % 97) / 100.0, 0.2 + (i % 13) / 100.0);
        out << line;
      }
    }
    out << "#endif \n";
  }
  ~DataFile() { std::filesystem::remove(path_); }
  std::string path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

void BM_PreprocessDataFile(benchmark::State& state) {
  static const DataFile file;
  tidemark::graphics::Preprocessor pp;
  std::string buffer;
  std::int64_t lines = 0;
  for (auto _ : state) {
    pp.c_pre_proc_init(file.path(), "", "", false, ';');
    while (pp.c_pre_proc(buffer) == 0) ++lines;
    benchmark::DoNotOptimize(buffer);
  }
  state.counters["lines_per_second"] =
      benchmark::Counter(static_cast<double>(lines), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_PreprocessDataFile)->Unit(benchmark::kMillisecond);

}  // namespace
