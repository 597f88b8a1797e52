// A queue's command replays while its folder holds the queue: the same queue is left as
// it is, with the progress its jobs made; another queue in the folder is refused.
#include <gtest/gtest.h>

#include "shell/program_runner.h"
#include "shell/queue_writer.h"
#include "shell/scratch.h"

namespace tidemark::shell {
namespace {

namespace fs = std::filesystem;
using testing_support::Scratch;

QueuePlan plan_in(const Scratch& dir, const std::string& template_text) {
  return {dir / "q", template_text, {{"s01.dat", ""}, {"s02.dat", "S2"}}, dir.path(), "tidemark"};
}

TEST(QueueReplay, TheSameQueueKeepsItsProgressAndAnotherIsRefused) {
  Scratch dir;
  const std::string tpl = "READ_NATIVE \"%~dpnx\"\n";
  const QueueWriteResult first = write_queue(plan_in(dir, tpl));
  ASSERT_TRUE(first.ok()) << first.message;
  EXPECT_FALSE(first.already_queued);
  // Job 1 ran and is done; job 2 is being run.
  fs::rename(dir / "q" / "BQ_0001_.bat", dir / "q" / "done" / "BQ_0001_.bat");
  fs::rename(dir / "q" / "BQ_0002_.bat", dir / "q" / "running" / "BQ_0002_.bat");

  const QueueWriteResult again = write_queue(plan_in(dir, tpl));
  ASSERT_TRUE(again.ok()) << again.message;
  EXPECT_TRUE(again.already_queued);
  EXPECT_EQ(again.jobs, 2);
  EXPECT_FALSE(fs::exists(dir / "q" / "BQ_0001_.bat"));  // not queued again
  EXPECT_FALSE(fs::exists(dir / "q" / "BQ_0002_.bat"));

  for (const QueuePlan& other :
       {plan_in(dir, "READ_CSV \"%~dpnx\"\n"),
        QueuePlan{dir / "q", tpl, {{"s01.dat", ""}}, dir.path(), "tidemark"}}) {
    const QueueWriteResult refused = write_queue(other);
    EXPECT_FALSE(refused.ok());
    EXPECT_NE(refused.message.find("already holds another queue"), std::string::npos)
        << refused.message;
  }
}

TEST(QueueReplay, TheHistoryOfARunThatQueuedReplaysWhileTheQueueIsThere) {
  if (!fs::exists(testing_support::tidemark_binary())) GTEST_SKIP() << "build tidemark first";
  Scratch home, replay_home, dir;
  dir.write("jobs.tpl", "READ_NATIVE \"%~dpnx\"\nMODE Cluster8\nCLUSTER_CALCULATE\n");
  dir.write("study.par", "s01.dat\ns02.dat\n");
  const auto run = testing_support::run_tidemark(home.path(), dir.path(), {},
                                                 "QUEUE_JOBS \"jobs.tpl\" \"study.par\" \"q\"\n");
  ASSERT_EQ(run.status, 0) << run.err;
  const fs::path history = testing_support::run_file(home.path(), "CMD_");
  ASSERT_FALSE(history.empty());
  fs::rename(dir / "q" / "BQ_0001_.bat", dir / "q" / "done" / "BQ_0001_.bat");

  const auto replay = testing_support::run_tidemark(replay_home.path(), dir.path(),
                                                    {"-ON_ERROR:STOP", "-@", history.string()}, "");
  EXPECT_EQ(replay.status, 0) << replay.err;
  const std::string log = Scratch::read(testing_support::run_file(replay_home.path(), "LOG_"));
  EXPECT_NE(log.find("2 jobs already queued in"), std::string::npos) << log;
  EXPECT_TRUE(fs::exists(dir / "q" / "done" / "BQ_0001_.bat"));
}

}  // namespace
}  // namespace tidemark::shell
