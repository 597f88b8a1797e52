// Lines per second reading a native-mode data file of 100,000 lines into a data set:
// whole reads through the preprocessor, and the parser alone on lines held in memory.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "data/native_parser.h"
#include "data/native_reader.h"
#include "data/native_writer.h"

namespace {

constexpr int kPoints = 100000;

// The file text as the writer gives it: a few keyword lines and 100,000 data lines of
// eight 1PG15.5 fields, some of them missing.
std::string file_text() {
  tidemark::data::DataSet set;
  set.handle = "bench";
  set.headers[tidemark::data::kY] = "LH";
  for (int i = 0; i < kPoints; ++i) {
    const float missing = tidemark::core::kMissingF;
    set.push_point({float(i) * 10.0f, 4.0f + float(i % 97) / 100.0f, 0.2f + float(i % 13) / 100.0f,
                    2, i % 7 == 0 ? missing : float(i), missing, missing, missing});
  }
  return tidemark::data::native_text(set);
}

// Writes the file once and removes it at exit.
class DataFile {
 public:
  DataFile()
      : text_(file_text()),
        path_(std::filesystem::temp_directory_path() /
              ("tidemark_native_reader_bench_" + std::to_string(::getpid()) + ".dat")) {
    std::ofstream(path_, std::ios::binary) << text_;
  }
  ~DataFile() { std::filesystem::remove(path_); }
  const std::string& text() const { return text_; }
  std::string path() const { return path_.string(); }

 private:
  std::string text_;
  std::filesystem::path path_;
};

const DataFile& data_file() {
  static const DataFile file;
  return file;
}

void BM_ReadNativeFile(benchmark::State& state) {
  const DataFile& file = data_file();
  std::int64_t lines = 0;
  for (auto _ : state) {
    const auto result = tidemark::data::read_native_file(file.path());
    if (!result.ok()) state.SkipWithError("read failed");
    lines += result.set.size() + 2;  // the points and the two keyword lines
  }
  state.SetItemsProcessed(lines);
}
BENCHMARK(BM_ReadNativeFile)->Unit(benchmark::kMillisecond);

void BM_ParseNativeLines(benchmark::State& state) {
  std::vector<std::string> lines;
  std::istringstream in(data_file().text());
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  for (auto _ : state) {
    tidemark::data::NativeParser parser("bench.dat", false);
    for (const auto& line : lines) parser.take(line);
    benchmark::DoNotOptimize(std::move(parser).finish(0));
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(lines.size()));
}
BENCHMARK(BM_ParseNativeLines)->Unit(benchmark::kMillisecond);

}  // namespace
