// Whose results a copy of the listing or graph shows after the calculations that wrote
// them, as ShownResults tells it.
#include "shell/shown_results.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tidemark::shell {
namespace {

struct Step {
  bool ok;
  bool listing;  // the calculation wrote a listing
  bool graph;    // and a graph
  const char* set;
};

struct Case {
  const char* what;
  std::vector<Step> steps;
  const char* command;
  const char* expected;  // empty: nothing to say
};

const char* const kEarlierA =
    "The results shown belong to an earlier calculation, on data set a.dat: the last "
    "calculation, on data set b.dat, failed.";

class EarlierResults : public testing::TestWithParam<Case> {};

TEST_P(EarlierResults, AreNamedOnlyWhenTheLastCalculationFailedWithoutWritingThem) {
  const Case& c = GetParam();
  ShownResults shown;
  for (const Step& s : c.steps) {
    ModeOutput output;
    if (s.listing) output.listing = "listing";
    if (s.graph) output.graph = "graph";
    shown.calculated(s.ok, output, s.set);
  }
  EXPECT_EQ(shown.earlier_results_line(c.command), c.expected) << c.what;
}

INSTANTIATE_TEST_SUITE_P(
    ShownResults, EarlierResults,
    testing::Values(
        Case{"success", {{true, true, true, "a.dat"}}, "COPY_LST \"x\"", ""},
        Case{"failure without output",
             {{true, true, true, "a.dat"}, {false, false, false, "b.dat"}},
             "copy_lst \"x\"",
             kEarlierA},
        Case{"the graph as well",
             {{true, true, true, "a.dat"}, {false, false, false, "b.dat"}},
             "SAVE_GRF_PNG \"x.png\"",
             kEarlierA},
        Case{"a failed fit's own listing",
             {{true, true, true, "a.dat"}, {false, true, false, "b.dat"}},
             "SAVE_AS_LST \"x\"",
             ""},
        Case{"but the graph is the earlier one",
             {{true, true, true, "a.dat"}, {false, true, false, "b.dat"}},
             "COPY_GRF \"x\"",
             kEarlierA},
        Case{"nothing was ever shown", {{false, false, false, "b.dat"}}, "COPY_LST \"x\"", ""},
        Case{"another command",
             {{true, true, true, "a.dat"}, {false, false, false, "b.dat"}},
             "COPY_LOG \"x\"",
             ""},
        Case{"a success after the failure",
             {{true, true, true, "a.dat"},
              {false, false, false, "b.dat"},
              {true, true, true, "b.dat"}},
             "COPY_LST \"x\"",
             ""}));

TEST(ShownResults, ARecallMakesTheRecalledSetsResultsTheOnesShown) {
  ShownResults shown;
  shown.calculated(true, {.listing = "l", .graph = "g"}, "a.dat");
  shown.calculated(false, {}, "b.dat");
  shown.recalled("c.dat");
  EXPECT_EQ(shown.earlier_results_line("COPY_LST \"x\""),
            "The results shown belong to an earlier calculation, on data set c.dat: the last "
            "calculation, on data set b.dat, failed.");
}

}  // namespace
}  // namespace tidemark::shell
