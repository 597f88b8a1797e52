#include "core/text.h"

#include <gtest/gtest.h>

namespace tidemark::core {
namespace {

TEST(Text, PaddedFieldsCompareWithoutTrailingBlanks) {
  EXPECT_TRUE(padded_equal("SEM", "SEM       "));
  EXPECT_FALSE(padded_equal(" SEM", "SEM"));
  EXPECT_TRUE(is_blank("     "));
  EXPECT_TRUE(is_blank(""));
  EXPECT_FALSE(is_blank("  x "));
  EXPECT_EQ(rtrim("a b  "), "a b");
  EXPECT_EQ(trim(" \ta b \t"), "a b");
}

TEST(Text, CommandPrefixMatchIgnoresCase) {
  EXPECT_TRUE(starts_with_nocase("read_native \"a.dat\"", "READ_NATIVE"));
  EXPECT_FALSE(starts_with_nocase("READ", "READ_NATIVE"));
  EXPECT_EQ(to_upper("ApEn_print"), "APEN_PRINT");
  EXPECT_EQ(cut("abcdef", 4), "abcd");
  EXPECT_EQ(cut("ab", 4), "ab");
}

}  // namespace
}  // namespace tidemark::core
