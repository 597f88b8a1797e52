// Gold_Method's summary-book columns carry the numbers of its listing.
#include <gtest/gtest.h>

#include <cmath>

#include "core/missing.h"
#include "pulse/modes/gold_mode.h"
#include "pulse/modes/simulate_commands.h"
#include "shell/listing_values.h"
#include "shell/session_fixture.h"

namespace tidemark::pulse {
namespace {

using testing_support::value_after;

TEST(GoldSummary, FillsDpToDtWithTheListedSettingsIterationsAndResidual) {
  testing_support::SessionFixture f(
      testing_support::only_mode(8, [](int) { return make_gold_mode(); }));
  f.session->set_simulator(make_simulate_commands());
  // 101 samples every 10 minutes: the interval is 10 by construction.
  // 101 samples every 10 minutes: the interval is 10 by construction.
  f.run({"SIMULATE SEED=5 SAMPLES=101 EVENTS=200:0.5,600:0.8 NOISE_CV=0.03", "MODE Gold_Method",
         "SET Elimination Half-Life = 50", "GOLD_CALCULATE", "GOLD_VIEW"});
  ASSERT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
  const std::string listing = f.ui.texts.at(0);
  const data::SummaryRow& row = f.session->store().current().summary;
  const auto expect = [&](const char* letters, const char* title, double value) {
    ASSERT_TRUE(row.contains(letters)) << letters;
    EXPECT_EQ(row.at(letters).title, title);
    EXPECT_NEAR(row.at(letters).value, value, std::abs(value) * 1e-4) << title;  // 5 digits listed
  };
  EXPECT_EQ(row.size(), 5u);
  expect("DP", "Gold Half-Life", 50);
  expect("DQ", "Gold Secretion SD", value_after(listing, " Secretion SD = "));
  expect("DR", "Gold Sampling Interval", 10);
  expect("DS", "Gold Iterations", value_after(listing, " Iterations = "));
  expect("DT", "Gold R", value_after(listing, " R = "));
  // The elimination-only kernel has no secretion SD: its cell is missing (empty).
  f.run({"SET Kernel = Elimination Only", "GOLD_CALCULATE"});
  ASSERT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
  EXPECT_TRUE(core::is_missing(row.at("DQ").value));
}

}  // namespace
}  // namespace tidemark::pulse
