// From data sets to the kernel's series: which points are used, the weights, and the
// output points the inputs cannot reach (the refusals are tested through the mode's
// commands, srquant_mode_test.cpp). Expected values are counted
// by hand from the data sets built here.
#include "feedback/modes/srquant_data.h"

#include <gtest/gtest.h>

#include "core/missing.h"

namespace tidemark::feedback {
namespace {

constexpr float kMiss = core::kMissingF;

// A data set of points {time, conc, sem, reps}.
data::DataSet set_of(const std::string& file, std::vector<std::array<float, 4>> points) {
  data::DataSet set;
  set.file_name = file;
  set.handle = file.substr(0, 2);
  for (const auto& p : points) set.push_point({p[0], p[1], p[2], p[3], 0, 0, 0, 0});
  return set;
}

data::Store store_of(std::vector<data::DataSet> sets) {
  data::Store store;
  for (auto& s : sets) store.append(std::move(s));
  return store;
}

// The output has a missing concentration (point 2), a REPS 0 point (point 4) and a
// missing time (point 6); the input a missing value (point 3).
data::Store messy_pair(float sem_of_point_5 = 0.5f) {
  return store_of(
      {set_of("out.dat", {{0, 10, 1, 1},
                          {10, kMiss, 1, 1},
                          {20, 12, 2, 1},
                          {30, 13, 1, 0},
                          {40, 14, sem_of_point_5, 2},
                          {kMiss, 15, 1, 1},
                          {60, 16, 4, 1}}),
       set_of("in.dat", {{0, 1, 0, 1}, {10, 2, 0, 1}, {20, kMiss, 0, 1}, {30, 4, 0, 1},
                         {60, 7, 0, 1}})});
}

TEST(ResponseSeries, LeavesOutMissingAndUnreplicatedPointsAndWeighsBySem) {
  const ResponseSeries s = read_response_series(messy_pair(), 1, {2});
  ASSERT_TRUE(s.ok()) << s.problem;
  EXPECT_EQ(s.data.time, (std::vector<double>{0, 20, 40, 60}));
  EXPECT_EQ(s.data.conc, (std::vector<double>{10, 12, 14, 16}));
  EXPECT_EQ(s.data.sem, (std::vector<double>{1, 2, 0.5, 4}));
  EXPECT_TRUE(s.sem_weights);
  EXPECT_EQ(s.output.used, 4);
  EXPECT_EQ(s.output.missing, 2);
  EXPECT_EQ(s.output.unreplicated, 1);
  ASSERT_EQ(s.data.inputs.size(), 1u);
  EXPECT_EQ(s.data.inputs[0].time, (std::vector<double>{0, 10, 30, 60}));
  EXPECT_EQ(s.data.inputs[0].value, (std::vector<double>{1, 2, 4, 7}));
  EXPECT_EQ(s.inputs[0].missing, 1);
}

TEST(ResponseSeries, AnSemOfZeroOrMissingGivesEqualWeights) {
  for (const float sem : {0.0f, kMiss}) {
    const ResponseSeries s = read_response_series(messy_pair(sem), 1, {2});
    ASSERT_TRUE(s.ok()) << s.problem;
    EXPECT_FALSE(s.sem_weights);
    EXPECT_EQ(s.data.sem, (std::vector<double>{1, 1, 1, 1}));
  }
}

// Input from 0 to 60; output at 0, 20, 40, 60. A delay up to 25 reaches t >= 25 only;
// a smallest delay of 0 reaches up to 60: 2 early points, none late. A held delay of 70
// reaches from 70 on: nothing.
TEST(ResponseSeries, KeepsTheOutputPointsTheDelayedInputsReach) {
  ResponseModel model;
  model.inputs.resize(1);
  model.inputs[0].delay = {5, 0, 25, true};
  ResponseSeries s = read_response_series(messy_pair(), 1, {2});
  keep_reach(s, model);
  ASSERT_TRUE(s.ok()) << s.problem;
  EXPECT_EQ(s.data.time, (std::vector<double>{40, 60}));
  EXPECT_EQ(s.data.sem, (std::vector<double>{0.5, 4}));
  EXPECT_EQ(s.early, 2);
  EXPECT_EQ(s.late, 0);
  model.inputs[0].delay = {70, 0, 80, false};
  ResponseSeries none = read_response_series(messy_pair(), 1, {2});
  keep_reach(none, model);
  EXPECT_EQ(none.problem,
            "The inputs do not reach any of the output's times: the output runs from 0.0000 to "
            "60.000, and with their delays the inputs reach from 70.000 to 130.00.");
}

}  // namespace
}  // namespace tidemark::feedback
