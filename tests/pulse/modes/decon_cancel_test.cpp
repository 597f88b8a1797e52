// A Cancel in AutoDecon's progress display stops the search: no results, the data set and
// the kept listing as they were.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "pulse/modes/decon_mode.h"
#include "shell/session_fixture.h"

namespace tidemark::pulse {
namespace {

using testing_support::SessionFixture;

// 24 h at 10 min: a basal level of 2 and one burst at 300 min decaying with a 60-min
// half-life, SEM 5 % of the value.
data::DataSet one_burst() {
  data::DataSet set;
  set.file_name = "burst.dat";
  set.handle = "BURST";
  for (int i = 0; i < 144; ++i) {
    const float t = 10.0f * static_cast<float>(i);
    const float c = 2.0f + (t >= 300 ? 3.0f * std::exp2(-(t - 300) / 60) : 0.0f);
    set.push_point({t, c, 0.05f * c, 2.0f, 0, 0, 0, 0});
  }
  return set;
}

TEST(DeconMode, ACancelledSearchLeavesNoResults) {
  SessionFixture f(testing_support::only_mode(2, [](int v) { return make_decon_mode(v); }));
  f.session->store().append(one_burst());
  const data::DataSet before = f.session->store().current();
  f.ui.cancel_progress = true;
  f.run({"MODE AutoDecon", "DECON_CALCULATE"});
  EXPECT_TRUE(f.session->failed());
  EXPECT_EQ(f.ui.progress_titles, std::vector<std::string>{"AutoDecon search"});
  const auto shown = f.ui.shown();
  EXPECT_TRUE(std::any_of(shown.begin(), shown.end(), [](const std::string& line) {
    return line.find("AutoDecon calculation cancelled.") != std::string::npos;
  })) << testing::PrintToString(shown);
  EXPECT_EQ(f.session->store().current().answers, before.answers);
  EXPECT_EQ(f.session->store().current().size(), before.size());
}

}  // namespace
}  // namespace tidemark::pulse
