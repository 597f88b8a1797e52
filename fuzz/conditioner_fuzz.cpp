// Builds a data set from the input bytes and conditions it; checks that the record stays
// well formed whatever the values (NaN, infinities, missing values, any crop range).
//
// Input layout: byte 0 flags (bit 0 quiet, bits 1-4 blank X/Y/DY/REPS headers, bit 5 raw
// points), byte 1 crop start and byte 2 crop end (signed; -128 missing), bytes 3-6
// integer slots 1..4 (signed, times 300). Then the points: raw points are eight floats
// of the bytes; other points take four bytes (time step, kind, Y, DY) that favour
// regular series with gaps, so the fuzzer reaches the gap repair.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "core/missing.h"
#include "data/conditioner.h"
#include "ui/console_ui.h"

namespace {

using tidemark::data::DataSet;
constexpr std::size_t kHeaderBytes = 7;
constexpr int kMaxPoints = 4096;

void check(bool invariant) {
  if (!invariant) std::abort();
}

float special(int code, float normal) {
  switch (code) {
    case 1:
      return tidemark::core::kMissingF;
    case 2:
      return std::numeric_limits<float>::quiet_NaN();
    case 3:
      return std::numeric_limits<float>::infinity();
    default:
      return normal;
  }
}

void add_raw_points(DataSet& set, const std::uint8_t* data, std::size_t size) {
  for (std::size_t at = 0; at + 32 <= size && set.size() < kMaxPoints; at += 32) {
    std::array<float, tidemark::data::kColumnCount> values;
    std::memcpy(values.data(), data + at, sizeof values);
    set.push_point(values);
  }
}

void add_shaped_points(DataSet& set, const std::uint8_t* data, std::size_t size) {
  static constexpr float kSteps[8] = {1, 1, 1, 2, 3, 0, 1.5f, -1};
  float time = 0;
  for (std::size_t at = 0; at + 4 <= size && set.size() < kMaxPoints; at += 4) {
    const std::uint8_t step = data[at], kind = data[at + 1];
    time += 10 * kSteps[step & 7] + float(step >> 6) * 0.1f;
    const float y = float(data[at + 2]) - 16;
    const float dy = float(data[at + 3]) / 8;
    const float reps = float((kind >> 6) & 3);
    set.push_point({special((kind & 7) > 3 ? (kind & 7) - 4 : 0, time), special((kind >> 3) & 3, y),
                    special((kind >> 5) & 1, dy), reps, y, y, y, y});
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < kHeaderBytes) return 0;
  DataSet set;
  const std::uint8_t flags = data[0];
  for (int c = 0; c < 4; ++c) {
    if (!((flags >> (c + 1)) & 1)) set.headers[c].assign(1, 'H');
  }
  const auto signed_byte = [&](std::size_t i) { return int(static_cast<std::int8_t>(data[i])); };
  set.crop_start = signed_byte(1) == -128 ? tidemark::core::kMissingInt : signed_byte(1);
  set.crop_end = signed_byte(2) == -128 ? tidemark::core::kMissingInt : signed_byte(2);
  for (int s = 0; s < 4; ++s) set.integers[s] = 300 * signed_byte(3 + std::size_t(s));
  if (flags & 32) {
    add_raw_points(set, data + kHeaderBytes, size - kHeaderBytes);
  } else {
    add_shaped_points(set, data + kHeaderBytes, size - kHeaderBytes);
  }

  const int before = set.size();
  tidemark::ui::RecordingUi ui;
  tidemark::ui::MemoryLog log;
  const auto result = tidemark::data::condition(set, flags & 1, ui, log);

  for (const auto& column : set.columns) check(int(column.size()) == set.size());
  check(set.size() >= before && set.size() <= 3 * std::max(before, 1));
  check(result.ok() == result.message.empty());
  for (const auto& line : log.lines()) check(line.starts_with("DATA_CONDITIONER: "));
  for (int c = 0; c < 4; ++c) check(!set.headers[c].empty());
  if (result.ok()) {
    const auto& x = set.x();
    check(std::is_sorted(x.begin() + set.first_point() - 1, x.begin() + set.last_point()));
  }
  return 0;
}
