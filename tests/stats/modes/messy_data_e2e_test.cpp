// ApEn and Cosine on messy data, through the program itself: messy_series.dat holds
// missing concentrations and SDs, replicate counts of 0 and a missing one, rows out of
// order, time gaps the conditioner fills, and a crop range, so a driver that passes the
// wrong points to its kernel shows wrong numbers here. Expected values were computed
// by scripts/gen-messy-fixtures, which transcribes the published rules in Python and
// shares no code with the program.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "shell/listing_values.h"
#include "shell/program_runner.h"

namespace tidemark::stats {
namespace {

namespace fs = std::filesystem;
using testing_support::run_tidemark;
using testing_support::Scratch;
using testing_support::value_after;

// The conditioned crop range has 33 points from 20 to 340 (three of them inserted, with
// REPS 0); 26 are usable: a concentration above 0 and REPS other than 0.
TEST(MessyStatsModes, ApEnAndCosineUseOnlyTheUsablePointsOfTheConditionedCropRange) {
  Scratch home, work;
  const fs::path data = fs::path(TIDEMARK_FIXTURES) / "modes";
  work.write("run.cmd",
             "READ_NATIVE \"" + (data / "messy_series.dat").string() +
                 "\"\nMODE ApEn\nSET MC Cycles = 2\nAPEN_CALCULATE\n"
                 "COPY_LST \"apen.lst\"\nMODE Cosine\nSET Period = 240\n"
                 "COSINE_CALCULATE\nCOPY_LST \"cosine.lst\"\n"
                 "READ_NATIVE \"" +
                 (data / "messy_series_zero.dat").string() +
                 "\"\nMODE ApEn\nSET MC Cycles = 2\nAPEN_CALCULATE\nCOPY_LST \"zero.lst\"\n"
                 "MODE Cosine\nSET Period = 240\nCOSINE_CALCULATE\nCOPY_LST \"cosine_zero.lst\"\n"
                 "EXIT\n");
  const auto run = run_tidemark(home.path(), work.path(), {"-@", "run.cmd"}, "");
  ASSERT_EQ(run.status, 0) << run.err;

  // ApEn(m, r = 0.2 SD, N = 33) by the definition over the z-scores of the usable points,
  // the unusable ones dropping out of every template that holds them.
  const std::string apen = Scratch::read(work / "apen.lst");
  EXPECT_NEAR(value_after(apen, "\nApEn(1,0.20,33) = "), 0.746097, 1e-5) << apen;
  EXPECT_NEAR(value_after(apen, "\nApEn(2,0.20,33) = "), 0.103594, 1e-5);
  // The same series with a concentration of 0 (2 replicates) at time 60: not usable.
  EXPECT_NEAR(value_after(Scratch::read(work / "zero.lst"), "\nApEn(1,0.20,33) = "), 0.788043,
              1e-5);

  // The cosinor with Period 240 and Slope 0 held is linear in a cos, b sin and the mean:
  // the least-squares solution in closed form, amplitude sqrt(a² + b²), phase
  // atan2(b, a) / w in [0, 240).
  const std::string cosine = Scratch::read(work / "cosine.lst");
  EXPECT_NEAR(value_after(cosine, "\nAmplitude "), 1.29466, 1e-4) << cosine;
  EXPECT_NEAR(value_after(cosine, "\nPhase     "), 118.215, 0.01);
  EXPECT_NEAR(value_after(cosine, "\nMean      "), 3.20939, 1e-4);
  EXPECT_EQ(value_after(cosine, " with "), 26.0);
  // The same fit on messy_series_zero.dat: the concentration of 0 at time 60 is not a
  // valid point, so 25 points are fitted.
  const std::string zero = Scratch::read(work / "cosine_zero.lst");
  EXPECT_NEAR(value_after(zero, "\nAmplitude "), 1.29873, 1e-4) << zero;
  EXPECT_NEAR(value_after(zero, "\nPhase     "), 116.43, 0.01);
  EXPECT_NEAR(value_after(zero, "\nMean      "), 3.23778, 1e-4);
  EXPECT_EQ(value_after(zero, " with "), 25.0);
}

}  // namespace
}  // namespace tidemark::stats
