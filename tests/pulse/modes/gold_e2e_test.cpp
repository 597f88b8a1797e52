// The program itself on a command file: a simulated data set is written, read back and
// deconvolved by Gold_Method.
#include <gtest/gtest.h>

#include "data/native_reader.h"
#include "data/secretion_events.h"
#include "shell/program_runner.h"
#include "ui/console_ui.h"

namespace tidemark::pulse {
namespace {

using testing_support::run_tidemark;
using testing_support::Scratch;

// 3 % noise: on noiseless data Gold's iteration keeps improving R by more than 1e-4 per
// iteration and stops at 3000 without converging.
constexpr const char* kRun =
    "SIMULATE SEED=5 SAMPLES=101 EVENTS=200:0.5,600:0.8 NOISE_CV=0.03 HANDLE=SIM\n"
    "WRITE_NATIVE \"sim.dat\"\n"
    "RESET\n"
    "READ_NATIVE \"sim.dat\"\n"
    "MODE Gold_Method\n"
    "SET Elimination Half-Life = 45\n"
    "GOLD_CALCULATE\n"
    "COPY_LST \"gold.lst\"\n"
    "EXIT\n";

TEST(GoldMethodProgram, DeconvolvesASimulatedDataSetWrittenAndReadBack) {
  Scratch home, work;
  work.write("run.cmd", kRun);
  const auto run = run_tidemark(home.path(), work.path(), {"-@", "run.cmd"}, "");
  ASSERT_EQ(run.status, 0) << run.err;

  // The data file keeps the true events and the model's half-life.
  data::Store store;
  ui::RecordingUi ui;
  ui::MemoryLog log;
  ASSERT_TRUE(data::read_native(store, (work / "sim.dat").string(), ui, log));
  const auto events = data::secretion_events(store.current());
  ASSERT_EQ(events.size(), 2u);
  EXPECT_EQ(events[1].position, 600.0);
  EXPECT_EQ(events[1].log_height, 0.8);
  EXPECT_EQ(store.current().answers[3], 45.0);
  EXPECT_EQ(store.current().size(), 101);

  const std::string listing = Scratch::read(work / "gold.lst");
  EXPECT_EQ(listing.rfind(" Gold's Method Deconvolution\n File: ", 0), 0u) << listing;
  EXPECT_NE(listing.find(" Handle: SIM\n"), std::string::npos);
  EXPECT_NE(listing.find(" Converged\n"), std::string::npos);
  // 101 sample lines after the column header.
  const std::size_t table = listing.find("SECRETION\n");
  ASSERT_NE(table, std::string::npos);
  EXPECT_EQ(std::count(listing.begin() + static_cast<long>(table), listing.end(), '\n'), 102);
}

}  // namespace
}  // namespace tidemark::pulse
