#include "data/native_writer.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <memory>
#include <sstream>
#include <string>

#include "data/native_reader.h"
#include "ui/console_ui.h"

namespace tidemark::data {
namespace {

constexpr float M = core::kMissingF;

// Reads `text` back through the preprocessor and the parser, as the file "mem/w.dat".
NativeReadResult read_back(const std::string& text) {
  NativeReadOptions options;
  options.opener = [&text](const std::string& path) -> std::unique_ptr<std::istream> {
    if (path != "mem/w.dat") return nullptr;
    return std::make_unique<std::istringstream>(text);
  };
  return read_native_file("mem/w.dat", options);
}

// The fields in which two records differ, for a readable failure message.
std::string differences(const DataSet& a, const DataSet& b) {
  std::ostringstream out;
  const auto check = [&out](const std::string& what, const auto& x, const auto& y) {
    if (!(x == y)) out << what << ": " << x << " vs " << y << "\n";
  };
  check("file_name", a.file_name, b.file_name);
  check("handle", a.handle, b.handle);
  check("ds_type", a.ds_type, b.ds_type);
  check("crop_start", a.crop_start, b.crop_start);
  check("crop_end", a.crop_end, b.crop_end);
  check("file_type", a.file_type + "/" + a.file_subtype, b.file_type + "/" + b.file_subtype);
  check("size", a.size(), b.size());
  for (int c = 0; c < kColumnCount; ++c) {
    check("header " + std::to_string(c), a.headers[c], b.headers[c]);
    for (int p = 0; p < std::min(a.size(), b.size()); ++p) {
      check(fmt::format("column {} point {}", c, p), a.columns[c][p], b.columns[c][p]);
    }
  }
  for (int i = 0; i < kAnswerCount; ++i)
    check(fmt::format("answer {}", i + 1), a.answers[i], b.answers[i]);
  for (int i = 0; i < kRealCount; ++i) check(fmt::format("real {}", i + 1), a.reals[i], b.reals[i]);
  for (int i = 0; i < kIntegerCount; ++i)
    check(fmt::format("integer {}", i + 1), a.integers[i], b.integers[i]);
  for (int i = 0; i < kStringCount; ++i)
    check(fmt::format("string {}", i + 1), a.strings[i], b.strings[i]);
  return out.str();
}

DataSet small_record() {
  DataSet set;
  set.file_name = "s07.dat";
  set.handle = "S07 LH";
  set.ds_type = 1;
  set.crop_start = 2;
  set.crop_end = 3;
  set.file_subtype = "native";
  set.answers[0] = 3.5;
  set.answers[1] = core::kMissing;  // missing: not written
  set.answers[6] = 1234.5;
  set.reals[34] = 0.00125f;
  set.integers[0] = 7;
  set.integers[1] = -32760;  // missing: not written
  set.strings[2] = "IU per L";
  set.headers[kX] = "TIME";
  set.headers[kDY] = "SEM";
  set.push_point({0, 2.049f, 0.102f, 2, M, M, M, M});
  set.push_point({10, 1e-5f, M, 1, 1e6f, -0.5f, 0, 99999});
  return set;
}

// The 1PG15.5 fields were derived by hand from the G editing rules (F form with 5
// significant digits and 4 trailing blanks for 0.1 <= |x| < 1E5, else 1P E form with 6)
// and confirmed with gfortran 12 `write(*,'(1PG15.5)')` of the same real(4) values.
TEST(NativeWriter, WritesOnlyTheSetFieldsInOrderWithFortranFields) {
  const std::string expected =
      ";!FILENAME = s07.dat\n"
      "!HANDLE = S07 LH\n"
      "!DSType = 1\n"
      "!CROP_Start = 2\n"
      "!CROP_End = 3\n"
      "!FILESUBTYPE = native\n"
      "!ANSWER(1) =     3.5000\n"
      "!ANSWER(7) =     1234.5\n"
      "!REAL(35) =    1.25000E-03\n"
      "!INTEGER(1) = 7\n"
      "!STRING(3) = IU per L\n"
      "!header_x = TIME\n"
      "!header_dy = SEM\n"
      "     0.0000         2.0490        0.10200         2.0000      "
      " -1.00000E+35   -1.00000E+35   -1.00000E+35   -1.00000E+35\n"
      "     10.000        1.00000E-05   -1.00000E+35     1.0000      "
      "  1.00000E+06   -0.50000         0.0000         99999.\n";
  EXPECT_EQ(native_text(small_record()), expected);
}

TEST(NativeWriter, EmptyRecordHasKeywordLinesOnlyAndIsRefusedOnReading) {
  DataSet set;
  set.handle = "none";
  EXPECT_EQ(native_text(set), "!HANDLE = none\n");
  const auto r = read_back(native_text(set));
  EXPECT_FALSE(r.ok);
  EXPECT_EQ(r.messages[0].lines.back(), "Data Read Error, not enough data points!");
}

TEST(NativeWriter, NonFiniteValuesAreWrittenAsMissing) {
  DataSet set;
  set.answers[0] = std::numeric_limits<double>::quiet_NaN();
  set.reals[0] = std::numeric_limits<float>::infinity();
  set.push_point({1, std::numeric_limits<float>::quiet_NaN(), 0, 0, 0, 0, 0, 0});
  set.push_point({2, -std::numeric_limits<float>::infinity(), 0, 0, 0, 0, 0, 0});
  const auto r = read_back(native_text(set));
  ASSERT_TRUE(r.ok);
  EXPECT_TRUE(core::is_missing(r.set.answers[0]));
  EXPECT_TRUE(core::is_missing(r.set.reals[0]));
  EXPECT_EQ(r.set.y(), (std::vector<float>{M, M}));
}

// Every slot kind, texts with blanks, missing point values and FX4: all values have at
// most 5 significant digits, so reading the file gives the same record again, except
// that it is named after the file read (the writer's !FILENAME line is a comment).
TEST(NativeWriter, WriteThenReadGivesTheSameRecord) {
  DataSet set = small_record();
  set.file_type = "ASCII export";
  set.answers[199] = -2.5e-100;  // doubles keep exponents beyond single precision
  set.answers[7] = 0.1;
  set.reals[0] = 3.4028e38f;
  set.integers[1] = core::kMissingInt;  // -32760 counts as missing and reads back as this
  set.integers[8] = -32759;             // lowest integer that is not missing
  set.strings[0] = "a string, with; punctuation = and (parentheses)";
  for (int c = 0; c < kColumnCount; ++c) set.headers[c] = "Column " + std::to_string(c + 1);
  set.push_point({20, M, 0.5f, M, 1, 2, 3, 4.25f});
  const auto r = read_back(native_text(set));
  ASSERT_TRUE(r.ok) << r.messages[0].lines.back();
  set.file_name = "mem/w.dat";
  EXPECT_EQ(differences(r.set, set), "");
}

// Values m × 10^e with a 5-digit m, over the whole normal single-precision range; the
// expected floats are the C library's strtof of the decimal text.
TEST(NativeWriter, FiveDigitValuesRoundTripExactlyAtEveryMagnitude) {
  DataSet set;
  int m = 10007;
  for (int e = -37; e <= 33; ++e) {
    m = 10000 + (m * 7919) % 90000;
    const std::string text = std::to_string(m) + "e" + std::to_string(e);
    const float f = std::strtof(text.c_str(), nullptr);
    const float negative = e < 30 ? -f : f;  // below -9.9E34 a value counts as missing
    set.push_point({f, negative, f, f, f, f, f, f});
    set.answers[e + 37] = std::strtod(text.c_str(), nullptr);
  }
  const auto r = read_back(native_text(set));
  ASSERT_TRUE(r.ok);
  set.file_name = "mem/w.dat";
  EXPECT_EQ(differences(r.set, set), "");
}

class NativeWriterFile : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = std::filesystem::temp_directory_path() /
           ("tidemark_native_writer_" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir_);
  }
  void TearDown() override { std::filesystem::remove_all(dir_); }
  std::filesystem::path dir_;
  ui::RecordingUi ui_;
  ui::MemoryLog log_;
};

TEST_F(NativeWriterFile, WriteIsLoggedAndTheFileReadsBack) {
  const std::string path = (dir_ / "s07_.dat").string();
  ASSERT_TRUE(write_native(small_record(), path, ui_, log_));
  EXPECT_EQ(log_.lines(), std::vector<std::string>{"WRITE NATIVE MODE FILE"});
  Store store;
  ASSERT_TRUE(read_native(store, path, ui_, log_));
  EXPECT_EQ(store.current().y(), small_record().y());
}

TEST_F(NativeWriterFile, FailedWriteIsReportedAndKeepsTheOldFile) {
  const std::filesystem::path folder = dir_ / "taken.dat";
  std::filesystem::create_directory(folder);
  EXPECT_FALSE(write_native(small_record(), folder.string(), ui_, log_));
  EXPECT_TRUE(std::filesystem::is_directory(folder));
  ASSERT_EQ(ui_.boxes().size(), 1u);
  EXPECT_EQ(ui_.boxes()[0].title, "ERROR WRITING DATA FILE");
  EXPECT_EQ(ui_.boxes()[0].lines[0], "Could Not Write The Data File");
  EXPECT_EQ(log_.lines().size(), 2u);  // the box's two lines, no "WRITE NATIVE MODE FILE"
}

}  // namespace
}  // namespace tidemark::data
