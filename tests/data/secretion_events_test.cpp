#include "data/secretion_events.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace tidemark::data {
namespace {

TEST(SecretionEvents, EventPairsFollowTheEightModelParameters) {
  DataSet set;
  const std::vector<SecretionEvent> events{{30.0, 0.5}, {95.0, -0.25}};
  set_secretion_events(set, events);
  // Event 1 at answers 9 and 10, event 2 at 11 and 12 (0-based 8..11).
  EXPECT_EQ(set.answers[8], 30.0);
  EXPECT_EQ(set.answers[9], 0.5);
  EXPECT_EQ(set.answers[10], 95.0);
  EXPECT_EQ(set.answers[11], -0.25);
  EXPECT_TRUE(core::is_missing(set.answers[12]));
  EXPECT_TRUE(core::is_missing(set.answers[7]));  // model parameters untouched

  const auto back = secretion_events(set);
  ASSERT_EQ(back.size(), 2u);
  EXPECT_EQ(back[1].position, 95.0);
  EXPECT_EQ(back[1].log_height, -0.25);
}

TEST(SecretionEvents, CountStopsAtTheFirstMissingPositionAndFewerEventsClearTheRest) {
  DataSet set;
  set_secretion_events(set, std::vector<SecretionEvent>{{1, 0}, {2, 0}, {3, 0}});
  set_secretion_events(set, std::vector<SecretionEvent>{{5, 0}});
  EXPECT_EQ(secretion_events(set).size(), 1u);

  set.answers[8] = core::kMissing;  // a gap before a later position ends the run
  set.answers[10] = 7.0;
  EXPECT_TRUE(secretion_events(set).empty());
}

TEST(SecretionEvents, AtMostNinetySixEventsFillAnswersUpToTwoHundred) {
  DataSet set;
  std::vector<SecretionEvent> many(120, {10.0, 1.0});
  set_secretion_events(set, many);
  EXPECT_EQ(secretion_events(set).size(), 96u);
  EXPECT_EQ(set.answers[199], 1.0);  // LogHeight of event 96 is answer 8 + 192 = 200

  const std::array<double, kModelParameterCount> p{1, 2, 3, 4, 5, 6, 7, 8};
  set_model_parameters(set, p);
  EXPECT_EQ(set.answers[0], 1.0);
  EXPECT_EQ(set.answers[7], 8.0);
  EXPECT_EQ(set.answers[8], 10.0);
}

}  // namespace
}  // namespace tidemark::data
