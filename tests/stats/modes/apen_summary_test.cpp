// ApEn's summary-book columns: every letter and title as the program's column list
// gives them, and each holding the result it names.
#include "stats/modes/apen_summary.h"

#include <gtest/gtest.h>

#include <string>

namespace tidemark::stats {
namespace {

TEST(ApEnSummary, EachResultStandsUnderItsLetterAndTitle) {
  ApEnResult result;
  result.cycles = 1000;
  result.r = 0.2F;
  // Distinct values, so a result in the wrong column shows: m = 1 gets 1.1 .. 1.9,
  // m = 2 gets 2.1 .. 2.9, in the order of the listing.
  for (int m = 0; m < 2; ++m) {
    ApEnSummary& s = result.m[static_cast<std::size_t>(m)];
    const float base = static_cast<float>(m + 1);
    s = {base + 0.1F, base + 0.2F, base + 0.3F, base + 0.4F, base + 0.5F,
         base + 0.6F, base + 0.7F, base + 0.8F, base + 0.9F};
  }
  data::SummaryRow row;
  row["B"] = {"kept", 5};  // another analysis's column stays
  put_apen_summary(row, result);
  struct Expected {
    const char* letters;
    const char* title;
    float value;
  };
  for (const Expected& e : {Expected{"Q", "ApEn # MC Cycles", 1000},
                            Expected{"R", "ApEn R", 0.2F},
                            Expected{"S", "ApEn(1,R,)", 1.1F},
                            Expected{"T", "Noise Added ApEn(1,R,,)", 1.2F},
                            Expected{"U", "Noise Added ApEn(1,R,,) SD", 1.3F},
                            Expected{"V", "Shuffled ApEn(1,R,,)", 1.4F},
                            Expected{"W", "Shuffled ApEn(1,R,,) SD", 1.5F},
                            Expected{"X", "Ratio ApEn(1,R,,)", 1.6F},
                            Expected{"Y", "Ratio ApEn(1,R,,) SD", 1.7F},
                            Expected{"Z", "Z for ApEn(1,R,,)", 1.8F},
                            Expected{"AA", "P for ApEn(1,R,,)", 1.9F},
                            Expected{"AB", "ApEn(2,R,)", 2.1F},
                            Expected{"AC", "Noise Added ApEn(2,R,,)", 2.2F},
                            Expected{"AD", "Noise Added ApEn(2,R,,) SD", 2.3F},
                            Expected{"AE", "Shuffled ApEn(2,R,,)", 2.4F},
                            Expected{"AF", "Shuffled ApEn(2,R,,) SD", 2.5F},
                            Expected{"AG", "Ratio ApEn(2,R,,)", 2.6F},
                            Expected{"AH", "Ratio ApEn(2,R,,) SD", 2.7F},
                            Expected{"AI", "Z for ApEn(2,R,,)", 2.8F},
                            Expected{"AJ", "P for ApEn(2,R,,)", 2.9F},
                            Expected{"B", "kept", 5}}) {
    ASSERT_TRUE(row.contains(e.letters)) << e.letters;
    EXPECT_EQ(row.at(e.letters).title, e.title) << e.letters;
    EXPECT_EQ(row.at(e.letters).value, e.value) << e.letters;
  }
  EXPECT_EQ(row.size(), 21u);
}

}  // namespace
}  // namespace tidemark::stats
