// The listing, answers, log lines, summary cells and graph of an SRQuant run, written
// from a run made by hand (no fit is run). The expected listing rows are written out in
// the 1PG15.5 form by hand: F11.3 + 4 blanks for 10 <= |x| < 100, F11.4 + 4 blanks for
// 1 <= |x| < 10 and for 0.
#include "feedback/modes/srquant_report.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "core/missing.h"
#include "feedback/modes/srquant_graph.h"
#include "graphics/plot_parser.h"

namespace tidemark::feedback {
namespace {

// One stimulatory input without spreading, one elimination; output at 0, 10, ..., 50.
SRQuantRun hand_made_run(bool fitted) {
  SRQuantRun run;
  run.series.output = {1, "testo.dat", "T", "TESTO", 8, 1, 0};
  run.series.inputs = {{2, "lh.dat", "LH", "LH", 7, 0, 0}};
  run.series.sem_weights = true;
  run.series.early = 2;
  for (int i = 0; i < 6; ++i) {
    run.series.data.time.push_back(10.0 * i);
    run.series.data.conc.push_back(20 + i);
    run.series.data.sem.push_back(0.5);
  }
  run.series.data.inputs = {{{-20, -10, 0, 10, 20, 30, 40, 50}, {2, 3, 8, 4, 3, 2, 6, 5}}};
  run.model.inputs.resize(1);
  InputModel& in = run.model.inputs[0];
  in.delay = {10, 0, 90, true};
  in.width = {0, 0, 0, false};
  in.efficacy = {1, 0, 10, true};
  in.ec50 = {4, 2, 8, true};
  in.hill = {1, 1, 1, false};
  run.model.basal = {0.1, 0, 0.125, true};  // fitted at its upper bound
  run.model.half_life = {45, 10, 120, true};
  run.model.half_life_2 = {180, 180, 180, false};
  run.model.fraction_2 = {0, 0, 0, false};
  run.model.initial = {20, 0, 50, true};
  run.user_set = {"Delay 1"};
  run.options.optimizer = Optimizer::kSwarmThenLevenbergMarquardt;
  if (fitted) {
    run.fit.values = {62.311, 0, 2.5, 4.25, 1, 0.125, 50.5, 180, 0, 21.5};
    run.fit.standard_errors = {3.112, NAN, 0.25, 0.5, NAN, 0.01, 5, NAN, NAN, 0.75};
    run.fit.criterion = 4.5;
    run.fit.aic = 12.25;
    run.fit.bic = 14.75;
    run.fit.points = 6;
    run.fit.free_parameters = 6;
    run.fit.evaluations = 8123;
    run.fit.prediction.conc = {20, 21.5, 22, 22.5, 24.5, 25};
  } else {
    run.fit.status = ResponseFitStatus::kNothingToFit;
    run.fit.message = "Every parameter is held: there is nothing to fit.";
  }
  return run;
}

std::vector<std::string> lines_of(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

bool has_line(const std::vector<std::string>& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

TEST(SRQuantListing, TablesEveryUsedParameterWithItsFitAndError) {
  const std::vector<std::string> lines = lines_of(srquant_listing(hand_made_run(true)));
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines[0], "Signal-Response Quantification of testo.dat");
  for (const char* expected : {
           " Output   data set  1  testo.dat (T):     8 points used (missing 1, REPS 0 0)",
           "          6 fitted, outside the inputs' reach 2 before and 0 after; weights 1/SEM^2",
           " Input 1  data set  2  lh.dat (LH):     7 points used (missing 0, REPS 0 0)",
           "           stimulatory Efficacy 1 x^Hill 1 / (EC50 1^Hill 1 + x^Hill 1)",
           " Criterion: Least Squares; optimiser: Swarm then Levenberg-Marquardt (swarm of 40, "
           "200 iterations)",
           " Parameter         Start          Lower          Upper      Fit       Value      "
           "Std. Err.",
           " Delay 1    *     10.000         0.0000         90.000      FIT      62.311         "
           "3.1120    ",
           " Basal           0.10000         0.0000        0.12500      FIT     0.12500        "
           "1.00000E-02  at upper bound",
           " Hill 1           1.0000         1.0000         1.0000      HOLD     1.0000    ",
           " Least Squares  =     4.5000    ",
           " AIC            =     12.250    ",
           " Points = 6, free parameters = 6, evaluations = 8123",
       }) {
    EXPECT_TRUE(has_line(lines, expected)) << "missing: [" << expected << "]\n"
                                           << srquant_listing(hand_made_run(true));
  }
  const std::string text = srquant_listing(hand_made_run(true));
  EXPECT_EQ(text.find("Width 1"), std::string::npos);      // no spreading
  EXPECT_EQ(text.find("Half-Life 2"), std::string::npos);  // one elimination
}

TEST(SRQuantListing, AFailedFitListsTheStartsAndSaysWhy) {
  const std::string text = srquant_listing(hand_made_run(false));
  EXPECT_NE(text.find(" The fit failed: Every parameter is held: there is nothing to fit.\n"),
            std::string::npos)
      << text;
  EXPECT_EQ(text.find("Std. Err."), std::string::npos);
  const std::vector<std::string> log = srquant_log_lines(hand_made_run(false));
  ASSERT_EQ(log.size(), 2u);
  EXPECT_EQ(log[1], "SRQuant: no fit: Every parameter is held: there is nothing to fit.");
}

TEST(SRQuantOutputs, AnswersLogAndSummaryCarryTheFittedValues) {
  const SRQuantRun run = hand_made_run(true);
  const std::string answers = srquant_answers(run);
  EXPECT_NE(answers.find(" Delay 1 =      62.311      SE =      3.1120    \n"), std::string::npos)
      << answers;
  EXPECT_NE(answers.find(" Hill 1 =      1.0000    \n"), std::string::npos) << answers;
  const std::vector<std::string> log = srquant_log_lines(run);
  ASSERT_EQ(log.size(), 3u);
  EXPECT_EQ(log[0], "SRQuant: output testo.dat, inputs lh.dat");
  EXPECT_EQ(log[1], "SRQuant: Least Squares = 4.5000, AIC = 12.250, BIC = 14.750, 6 points, 6 free");
  const data::SummaryRow row = srquant_summary(run);
  // BY is column 2 * 26 + 25 = 77, DG is 4 * 26 + 7 = 111.
  ASSERT_EQ(row.size(), 35u);
  EXPECT_EQ(row.begin()->first, "BY");
  EXPECT_EQ(row.at("BY").title, "SRQuant Inputs");
  EXPECT_EQ(row.at("BY").value, 1);
  EXPECT_EQ(row.at("CA").title, "SRQuant AIC");
  EXPECT_EQ(row.at("CD").title, "SRQuant Basal");
  EXPECT_EQ(row.at("CD").value, 0.125f);
  EXPECT_TRUE(core::is_missing(row.at("CF").value));  // Half-Life 2 with one elimination
  EXPECT_EQ(row.at("CI").title, "SRQuant Delay 1");
  EXPECT_NEAR(row.at("CI").value, 62.311, 1e-4);
  EXPECT_TRUE(core::is_missing(row.at("CJ").value));  // Width 1 without spreading
  EXPECT_EQ(row.at("DG").title, "SRQuant Hill 5");
  EXPECT_TRUE(core::is_missing(row.at("DG").value));
}

TEST(SRQuantGraph, DrawsTheOutputResidualsInputsAndDoseResponse) {
  const SRQuantRun run = hand_made_run(true);
  data::DataSet output;
  output.file_name = "testo.dat";
  output.handle = "T";
  for (std::size_t i = 0; i < run.series.data.time.size(); ++i) {
    output.push_point({float(run.series.data.time[i]), float(run.series.data.conc[i]), 0.5f, 1, 0,
                       0, 0, 0});
  }
  const auto parsed = graphics::parse_plot(srquant_graph(run, output));
  ASSERT_TRUE(parsed.ok()) << parsed.message;
  const auto& panels = parsed.plot.panels;
  ASSERT_EQ(panels.size(), 4u);
  EXPECT_EQ(panels[1].title, "Residuals");
  EXPECT_EQ(panels[2].title, "Input");  // one input
  EXPECT_EQ(panels[3].title, "Dose-Response");
  const auto named = [](const graphics::Panel& p, const std::string& name) {
    for (const auto& s : p.series)
      if (s.name == name) return &s;
    return static_cast<const graphics::Series*>(nullptr);
  };
  const graphics::Series* residuals = named(panels[1], "Residuals");
  ASSERT_NE(residuals, nullptr);
  // (conc - prediction) / SEM at t = 10: (21 - 21.5) / 0.5.
  EXPECT_DOUBLE_EQ(residuals->y[1], -1);
  const graphics::Series* ec50 = named(panels[3], "EC50");
  ASSERT_NE(ec50, nullptr);
  // At x = EC50 a stimulatory response is half the efficacy: 2.5 / 2.
  EXPECT_DOUBLE_EQ(ec50->x[0], 4.25);
  EXPECT_NEAR(ec50->y[0], 1.25, 1e-12);
  ASSERT_NE(named(panels[0], "Prediction"), nullptr);
}

}  // namespace
}  // namespace tidemark::feedback
