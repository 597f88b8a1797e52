#include "data/native_writer.h"

#include <gtest/gtest.h>
#include <unistd.h>

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
    return path == "mem/w.dat" ? std::make_unique<std::istringstream>(text) : nullptr;
  };
  return read_native_file("mem/w.dat", options);
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
  EXPECT_EQ(native_text(small_record()),
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
            "  1.00000E+06   -0.50000         0.0000         99999.\n");
  DataSet empty;
  empty.handle = "none";
  EXPECT_EQ(native_text(empty), "!HANDLE = none\n");  // no points: keyword lines only
}

// Every slot kind, texts with blanks, missing values, FX4 and non-finite values (written
// as missing); all values have at most 5 significant digits, so the record reads back
// the same, except that it is named after the file read.
TEST(NativeWriter, WriteThenReadGivesTheSameRecord) {
  DataSet set = small_record();
  set.file_type = "ASCII export";
  set.answers[199] = -2.5e-100;  // doubles keep exponents beyond single precision
  set.reals[0] = 3.4028e38f;
  set.integers[1] = core::kMissingInt;  // -32760 counts as missing and reads back as this
  set.integers[8] = -32759;
  set.strings[0] = "a string, with; punctuation = and (parentheses)";
  for (int c = 0; c < kColumnCount; ++c) set.headers[c] = "Column " + std::to_string(c + 1);
  set.push_point({20, M, 0.5f, M, 1, 2, 3, 4.25f});
  DataSet with_nan = set;
  with_nan.answers[2] = std::numeric_limits<double>::quiet_NaN();
  with_nan.columns[kY][2] = std::numeric_limits<float>::infinity();
  const auto r = read_back(native_text(with_nan));
  ASSERT_TRUE(r.ok());
  set.file_name = "mem/w.dat";
  EXPECT_EQ(r.set, set) << native_text(r.set);
}

// m × 10^e with a 5-digit m over the normal single-precision range; the expected values
// are the C library's strtof / strtod of the decimal text.
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
  ASSERT_TRUE(r.ok());
  set.file_name = "mem/w.dat";
  EXPECT_EQ(r.set, set) << native_text(r.set);
}

TEST(NativeWriter, WriteIsLoggedAndAFailedWriteIsReportedAndKeepsTheTarget) {
  const auto dir = std::filesystem::temp_directory_path() /
                   ("tidemark_native_writer_" + std::to_string(::getpid()));
  std::filesystem::create_directories(dir / "taken.dat");
  ui::RecordingUi ui;
  ui::MemoryLog log;
  const bool written = write_native(small_record(), (dir / "s07_.dat").string(), ui, log);
  Store store;
  const bool read = read_native(store, (dir / "s07_.dat").string(), ui, log);
  const bool refused = !write_native(small_record(), (dir / "taken.dat").string(), ui, log);
  const bool kept = std::filesystem::is_directory(dir / "taken.dat");
  std::filesystem::remove_all(dir);
  EXPECT_TRUE(written && read && refused && kept);
  EXPECT_EQ(log.lines().front(), "WRITE NATIVE MODE FILE");
  ASSERT_EQ(ui.boxes().size(), 1u);
  EXPECT_EQ(ui.boxes()[0].title, "ERROR WRITING DATA FILE");
  EXPECT_EQ(ui.boxes()[0].lines[0], "Could Not Write The Data File");
}

}  // namespace
}  // namespace tidemark::data
