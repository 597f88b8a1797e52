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

// Gold_Method on 101 simulated samples every 10 minutes (the interval is 10 by
// construction) with `kernel`: the listing shown and the data set's summary row.
struct GoldRun {
  testing_support::SessionFixture f{
      testing_support::only_mode(8, [](int) { return make_gold_mode(); })};
  std::string listing;
  explicit GoldRun(const std::string& kernel) {
    f.session->set_simulator(make_simulate_commands());
    f.run({"SIMULATE SEED=5 SAMPLES=101 EVENTS=200:0.5,600:0.8 NOISE_CV=0.03",
           "MODE Gold_Method", "SET Elimination Half-Life = 50", "SET Kernel = " + kernel,
           "GOLD_CALCULATE", "GOLD_VIEW"});
    EXPECT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
    listing = f.ui.texts.empty() ? "" : f.ui.texts.back();
  }
  const data::SummaryRow& row() const { return f.session->store().current().summary; }
};

void expect_cell(const data::SummaryRow& row, const char* letters, const char* title,
                 double value) {
  ASSERT_TRUE(row.contains(letters)) << letters;
  EXPECT_EQ(row.at(letters).title, title);
  EXPECT_NEAR(row.at(letters).value, value, std::abs(value) * 1e-4) << title;  // 5 digits
}

TEST(GoldSummary, FillsDpToDtWithTheListedSettingsIterationsAndResidual) {
  const GoldRun run("Elimination and Secretion Shape");
  EXPECT_EQ(run.row().size(), 5u);
  expect_cell(run.row(), "DW", "Gold Half-Life", 50);
  expect_cell(run.row(), "DX", "Gold Secretion SD", value_after(run.listing, " Secretion SD = "));
  expect_cell(run.row(), "DY", "Gold Sampling Interval", 10);
  expect_cell(run.row(), "DZ", "Gold Iterations", value_after(run.listing, " Iterations = "));
  expect_cell(run.row(), "EA", "Gold R", value_after(run.listing, " R = "));
}

TEST(GoldSummary, TheEliminationOnlyKernelLeavesTheSecretionSdEmpty) {
  const GoldRun run("Elimination Only");
  ASSERT_TRUE(run.row().contains("DX"));
  EXPECT_TRUE(core::is_missing(run.row().at("DX").value));
  expect_cell(run.row(), "DZ", "Gold Iterations", value_after(run.listing, " Iterations = "));
}

}  // namespace
}  // namespace tidemark::pulse
