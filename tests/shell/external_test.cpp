#include "shell/external.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/time.h>

namespace tidemark::shell {
namespace {

void ignore_tick(int) {}

// An interval timer whose signal handler is installed without SA_RESTART, as a
// fuzzer's or a GUI toolkit's may be: every tick interrupts a system call that waits.
class TickingTimer {
 public:
  TickingTimer() {
    struct sigaction action {};
    action.sa_handler = ignore_tick;
    sigaction(SIGALRM, &action, &previous_);
    const itimerval every_20ms{{0, 20000}, {0, 20000}};
    setitimer(ITIMER_REAL, &every_20ms, nullptr);
  }
  ~TickingTimer() {
    const itimerval off{};
    setitimer(ITIMER_REAL, &off, nullptr);
    sigaction(SIGALRM, &previous_, nullptr);
  }

 private:
  struct sigaction previous_ {};
};

// The child runs for 0.3 s, so about 15 ticks fall into the wait; its exit status 3
// must still come back.
TEST(RunExternal, SignalsCaughtWhileWaitingDoNotLoseTheChild) {
  const TickingTimer timer;
  const ExternalRun run = run_external({"/bin/sh", "-c", "sleep 0.3; exit 3"});
  EXPECT_TRUE(run.started);
  EXPECT_EQ(run.status, 3);
}

TEST(RunExternal, AProgramThatIsNotFoundIsNotStarted) {
  const ExternalRun run = run_external({"tidemark-no-such-program"});
  EXPECT_FALSE(run.started);
}

}  // namespace
}  // namespace tidemark::shell
