// The preprocessor's building blocks: token reader, unit numbers and symbol table.
#include <gtest/gtest.h>

#include <string>

#include "graphics/pp_symbols.h"
#include "graphics/pp_tokens.h"
#include "graphics/pp_units.h"

namespace tidemark::graphics::pp {
namespace {

struct TokenCase {
  const char* line;
  TokenKind first_kind;
  const char* first;
  TokenKind second_kind;
  const char* second;
};

class TokenReaderCase : public ::testing::TestWithParam<TokenCase> {};

TEST_P(TokenReaderCase, ReadsTwoSuccessiveTokens) {
  const TokenCase& c = GetParam();
  TokenReader reader(c.line);
  const Token first = reader.next();
  const Token second = reader.next();
  EXPECT_EQ(first.kind, c.first_kind);
  EXPECT_EQ(first.text, c.first);
  EXPECT_EQ(second.kind, c.second_kind);
  EXPECT_EQ(second.text, c.second);
  EXPECT_EQ(reader.next().kind, TokenKind::kNone);
}

constexpr auto kNone = TokenKind::kNone;
constexpr auto kPlain = TokenKind::kPlain;
constexpr auto kQuoted = TokenKind::kQuoted;
constexpr auto kAngled = TokenKind::kAngled;

INSTANTIATE_TEST_SUITE_P(
    Lines, TokenReaderCase,
    ::testing::Values(TokenCase{"#define", kNone, "", kNone, ""},
                      TokenCase{"#define    ", kNone, "", kNone, ""},
                      TokenCase{"#define A  1", kPlain, "A", kPlain, "1"},
                      TokenCase{"#define\tA\t\t1  ", kPlain, "A", kPlain, "1"},
                      TokenCase{"#define \"a b\"\"c\"", kQuoted, "a b", kQuoted, "c"},
                      TokenCase{"#include <x y>z", kAngled, "x y", kPlain, "z"},
                      TokenCase{"#define \"\" <>", kQuoted, "", kAngled, ""},
                      TokenCase{"#define A \"open to end  ", kPlain, "A", kQuoted, "open to end"},
                      TokenCase{"#include <open", kAngled, "open", kNone, ""}));

TEST(UnitPool, HandsOutTheLowestFreeUnitAndZeroWhenAllAreTaken) {
  UnitPool pool(8, 3);
  EXPECT_EQ(pool.acquire(), 8);
  EXPECT_EQ(pool.acquire(), 9);
  EXPECT_EQ(pool.acquire(), 10);
  EXPECT_EQ(pool.acquire(), 0);
  pool.release(9);
  pool.release(42);
  EXPECT_EQ(pool.acquire(), 9);
  EXPECT_EQ(pool.acquire(), 0);
}

TEST(UnitPool, DefaultPoolHasNinetyOneUnitsFromEight) {
  UnitPool pool;
  int last = 0;
  for (int i = 0; i < 91; ++i) last = pool.acquire();
  EXPECT_EQ(last, 98);
  EXPECT_EQ(pool.acquire(), 0);
}

TEST(SymbolTable, GrowsByFiftyRowsWhenARowWouldNotFit) {
  SymbolTable table;
  for (int i = 0; i < 50; ++i) ASSERT_TRUE(table.append("S" + std::to_string(i), "v"));
  EXPECT_EQ(table.capacity(), 50u);
  EXPECT_TRUE(table.append("S50", "v"));
  EXPECT_EQ(table.capacity(), 100u);
  EXPECT_EQ(table.find("S50"), 50);
}

TEST(SymbolTable, NamesAreCutToFiftyCharactersAndCompareWithoutTrailingBlanks) {
  SymbolTable table;
  const std::string fifty(50, 'n');
  ASSERT_TRUE(table.append(fifty + "tail", "v  "));
  EXPECT_EQ(table.rows()[0].name, fifty);
  EXPECT_EQ(table.rows()[0].value, "v");
  EXPECT_EQ(table.find(fifty + "other"), 0);
  EXPECT_FALSE(table.append(fifty + "   ", "w"));
  EXPECT_FALSE(table.append("   ", "w"));
  table.remove(0);
  EXPECT_EQ(table.find(fifty), -1);
}

}  // namespace
}  // namespace tidemark::graphics::pp
