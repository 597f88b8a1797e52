#include "core/fortran_format.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace tidemark::core {
namespace {

// An edit descriptor such as "1PG15.5", "-2PE12.4", "G10.3E3" or "I5.3".
struct Descriptor {
  int scale = 0;
  char letter = ' ';
  int w = 0;
  int d = -1;  // also m of Iw.m
  int e = 0;
};

int read_int(std::string_view text, std::size_t& pos) {
  int value = 0;
  const auto result = std::from_chars(text.data() + pos, text.data() + text.size(), value);
  pos = static_cast<std::size_t>(result.ptr - text.data());
  return value;
}

Descriptor parse_descriptor(std::string_view text) {
  Descriptor desc;
  std::size_t pos = 0;
  if (const auto p = text.find('P'); p != std::string_view::npos) {
    desc.scale = read_int(text, pos);
    pos = p + 1;
  }
  desc.letter = text[pos++];
  desc.w = read_int(text, pos);
  if (pos < text.size() && text[pos] == '.') desc.d = read_int(text, ++pos);
  if (pos < text.size() && text[pos] == 'E') desc.e = read_int(text, ++pos);
  return desc;
}

std::string format_real(const Descriptor& desc, double value) {
  switch (desc.letter) {
    case 'F':
      return format_f(value, desc.w, desc.d, desc.scale);
    case 'E':
      return format_e(value, desc.w, desc.d, desc.e, desc.scale);
    default:
      return format_g(value, desc.w, desc.d, desc.e, desc.scale);
  }
}

// One reference case: "descriptor value [readable] [field]".
struct Case {
  std::string descriptor;
  std::string value;  // IEEE bits in hexadecimal, or a decimal integer for I
  std::string expected;
};

std::vector<Case> read_cases(const std::string& path) {
  std::vector<Case> cases;
  std::ifstream in(path);
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream fields(line);
    Case c;
    fields >> c.descriptor >> c.value;
    const auto open = line.find('[');
    c.expected = line.substr(open + 1, line.rfind(']') - open - 1);
    cases.push_back(c);
  }
  return cases;
}

// Expected fields: tests/fixtures/core/fortran_format_vectors.txt, written by gfortran 12
// through scripts/gen-fortran-vectors.
TEST(FortranFormat, WritesEveryReferenceFieldAsGfortranDoes) {
  const auto cases = read_cases(TIDEMARK_FIXTURES "/core/fortran_format_vectors.txt");
  ASSERT_GT(cases.size(), 1000u) << "reference vectors missing";
  for (const auto& c : cases) {
    const Descriptor desc = parse_descriptor(c.descriptor);
    if (desc.letter == 'I') {
      const long long n = std::stoll(c.value);
      EXPECT_EQ(format_i(n, desc.w, desc.d), c.expected) << c.descriptor << " of " << n;
      continue;
    }
    const double x = std::bit_cast<double>(std::stoull(c.value, nullptr, 16));
    EXPECT_EQ(format_real(desc, x), c.expected) << c.descriptor << " of " << c.value;
    if (c.descriptor == "1PG15.5") {
      EXPECT_EQ(format_g15_5(x), c.expected) << c.value;
    }
  }
}

// gfortran stops with a run-time error on these descriptors; here they give a field of
// '*' (nothing for a width below 1) so that a listing still shows where the value was.
TEST(FortranFormat, DescriptorsFortranRejectsFillTheFieldWithStars) {
  EXPECT_EQ(format_e(3.0, 10, 0), "**********");           // E10.0 needs 0 < k < 2
  EXPECT_EQ(format_e(3.0, 12, 4, 0, 6), "************");   // 6PE12.4: k >= d + 2
  EXPECT_EQ(format_e(3.0, 12, 4, 0, -4), "************");  // -4PE12.4: k <= -d
  EXPECT_EQ(format_g(3e9, 12, 4, 0, 6), "************");   // E form of 6PG12.4
  EXPECT_EQ(format_g(3.0, 10, 0), "**********");           // G10.0 is E10.0
  EXPECT_EQ(format_f(1.0, 6, -1), "******");
  EXPECT_EQ(format_f(1.0, 6, 2, 5000), "******");  // beyond the largest scale factor
  EXPECT_EQ(format_e(1.0, 6, 2, -1), "******");
  EXPECT_EQ(format_f(1.0, 0, 2), "");
  EXPECT_EQ(format_i(1, 0), "");
}

// gfortran accepts a scale factor outside -d < k < d + 2 on G when the value takes the
// F form, which ignores it: 6PG12.4 of 3 is "   3.000    " (checked with gfortran 12).
TEST(FortranFormat, GInFFormIgnoresAnyScaleFactor) {
  EXPECT_EQ(format_g(3.0, 12, 4, 0, 6), "   3.000    ");
}

}  // namespace
}  // namespace tidemark::core
