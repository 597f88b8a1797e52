#include "shell/modes.h"

#include <gtest/gtest.h>

namespace tidemark::shell {
namespace {

// The menu order of the modes, as the mode table lists them (index = place + 1).
TEST(Modes, FourteenModesInMenuOrder) {
  const char* expected[] = {"ApEn",   "AutoDecon", "Cluster8",    "Concordance", "Correlation",
                            "Cosine", "Deconv",    "Gold_Method", "Periodic",    "Pulse",
                            "Pulse2", "Pulse4",    "SRQuant",     "X_ApEn"};
  for (int i = 1; i <= kModeCount; ++i) EXPECT_EQ(mode_info(i).name, expected[i - 1]) << i;
}

TEST(Modes, NamesAreHeldFifteenCharactersWide) {
  EXPECT_EQ(padded_mode_name(3), "Cluster8       ");
  EXPECT_EQ(padded_mode_name(8), "Gold_Method    ");
}

TEST(Modes, AutoDeconAndDeconvShareOneDriverWithVariantsZeroAndOne) {
  EXPECT_EQ(mode_info(2).prefix, mode_info(7).prefix);
  EXPECT_EQ(mode_info(2).variant, 0);
  EXPECT_EQ(mode_info(7).variant, 1);
}

TEST(Modes, OnlyConcordanceCorrelationAndXApEnNeedTwoDataSets) {
  for (int i = 1; i <= kModeCount; ++i) {
    EXPECT_EQ(mode_info(i).needs_two_sets, i == 4 || i == 5 || i == 14) << mode_info(i).name;
  }
}

TEST(Modes, AModeIsFoundByItsNameInAnyLetterCase) {
  EXPECT_EQ(find_mode("cluster8"), 3);
  EXPECT_EQ(find_mode(" X_APEN "), 14);
  EXPECT_EQ(find_mode("Cluster"), std::nullopt);
}

}  // namespace
}  // namespace tidemark::shell
