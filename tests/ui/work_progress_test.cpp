#include "ui/work_progress.h"

#include <gtest/gtest.h>

#include <vector>

namespace tidemark::ui {
namespace {

class Recorded : public Progress {
 public:
  bool update(double fraction) override {
    fractions.push_back(fraction);
    return answer;
  }
  std::vector<double> fractions;
  bool answer = true;
};

TEST(ReportTo, PassesTheFractionDoneAndTheAnswerBack) {
  Recorded shown;
  const auto report = report_to(&shown);
  EXPECT_TRUE(report(25, 100));
  EXPECT_TRUE(report(0, 0));  // nothing to do counts as all done
  shown.answer = false;
  EXPECT_FALSE(report(3, 4));
  EXPECT_EQ(shown.fractions, (std::vector<double>{0.25, 1.0, 0.75}));
  EXPECT_TRUE(report_to(nullptr)(1, 2));  // nothing shown, nothing cancels
}

}  // namespace
}  // namespace tidemark::ui
