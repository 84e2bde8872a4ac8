#include "terminal/console/Interrupts.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <stdexcept>
#include <thread>

#include <unistd.h>

namespace portico::terminal {
namespace {

/// Two ends of a pipe, closed with the test.
struct PipeEnds {
  PipeEnds() {
    if (pipe(Ends.data()) != 0) throw std::runtime_error("pipe");
  }
  PipeEnds(const PipeEnds&) = delete;
  PipeEnds& operator=(const PipeEnds&) = delete;
  ~PipeEnds() {
    close(Ends[0]);
    CloseWriteEnd();
  }
  int ReadEnd() const { return Ends[0]; }
  void Fill() const { ASSERT_EQ(write(Ends[1], "x", 1), 1); }
  void CloseWriteEnd() {
    if (Ends[1] >= 0) close(Ends[1]);
    Ends[1] = -1;
  }

  std::array<int, 2> Ends{};
};

TEST(Interrupts, NothingIsRequestedAtFirst) {
  const Interrupts interrupts([] {});
  EXPECT_FALSE(interrupts.Requested());
}

TEST(Interrupts, FirstSignalAsksForTheEnd) {
  int seconds = 0;
  const Interrupts interrupts([&] { ++seconds; });
  raise(SIGINT);
  EXPECT_TRUE(interrupts.Requested());
  EXPECT_EQ(seconds, 0);
}

TEST(Interrupts, FromTheSecondOnAWaitIsEndedToo) {
  int seconds = 0;
  const Interrupts interrupts([&] { ++seconds; });
  raise(SIGINT);
  raise(SIGINT);
  EXPECT_EQ(seconds, 1);
  raise(SIGINT);
  EXPECT_EQ(seconds, 2);
}

TEST(Interrupts, EachTellsWhoeverWaitsBehindWhatTheSecondDoes) {
  std::string order;
  const Interrupts interrupts([&] { order += "second "; }, [&] { order += "any "; });
  raise(SIGINT);
  EXPECT_EQ(order, "any ");
  raise(SIGTERM);
  EXPECT_EQ(order, "any second any ");
}

TEST(Interrupts, RequestToTerminateCountsAlike) {
  int seconds = 0;
  const Interrupts interrupts([&] { ++seconds; });
  raise(SIGTERM);
  EXPECT_TRUE(interrupts.Requested());
  raise(SIGINT);
  EXPECT_EQ(seconds, 1);
}

TEST(Interrupts, NextObjectStartsAnew) {
  {
    const Interrupts interrupts([] {});
    raise(SIGINT);
  }
  const Interrupts interrupts([] { ADD_FAILURE() << "That was the first signal."; });
  EXPECT_FALSE(interrupts.Requested());
  raise(SIGINT);
  EXPECT_TRUE(interrupts.Requested());
}

TEST(Interrupts, WithTheObjectGoneALateSignalChangesNothing) {
  {
    const Interrupts interrupts([] { ADD_FAILURE() << "There is nothing left to interrupt."; });
  }
  raise(SIGINT);
  raise(SIGTERM);
  raise(SIGTERM);
}

TEST(Interrupts, WaitForInputSeesBytes) {
  const Interrupts interrupts([] {});
  const PipeEnds pipe;
  pipe.Fill();
  EXPECT_TRUE(interrupts.WaitForInput(pipe.ReadEnd()));
}

TEST(Interrupts, WaitForInputSeesTheEndOfInput) {
  const Interrupts interrupts([] {});
  PipeEnds pipe;
  pipe.CloseWriteEnd();
  EXPECT_TRUE(interrupts.WaitForInput(pipe.ReadEnd()));
}

TEST(Interrupts, WaitForInputEndsAtASignalBeforeIt) {
  const Interrupts interrupts([] {});
  const PipeEnds pipe;
  pipe.Fill();
  raise(SIGINT);
  EXPECT_FALSE(interrupts.WaitForInput(pipe.ReadEnd()));
}

TEST(Interrupts, WaitForInputEndsAtASignalDuringIt) {
  const Interrupts interrupts([] {});
  const PipeEnds pipe;
  std::thread user([] { raise(SIGINT); });
  EXPECT_FALSE(interrupts.WaitForInput(pipe.ReadEnd()));
  user.join();
}

} // namespace
} // namespace portico::terminal
