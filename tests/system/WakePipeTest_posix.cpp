#include "system/WakePipe.h"

#include <gtest/gtest.h>

#include <cerrno>

#include <poll.h>

namespace portico::system {
namespace {

bool IsReadable(const WakePipe& pipe) {
  pollfd polled{pipe.Descriptor(), POLLIN, 0};
  return poll(&polled, 1, 0) == 1;
}

TEST(WakePipeTest, IsQuietUntilItIsWoken) {
  WakePipe pipe;
  EXPECT_FALSE(IsReadable(pipe));
  pipe.Wake();
  EXPECT_TRUE(IsReadable(pipe));
}

TEST(WakePipeTest, StaysReadableUntilItIsDrained) {
  WakePipe pipe;
  for (int i = 0; i < 100; ++i) pipe.Wake(); // more than one read takes
  EXPECT_TRUE(IsReadable(pipe));
  pipe.Drain();
  EXPECT_FALSE(IsReadable(pipe));
  pipe.Wake();
  EXPECT_TRUE(IsReadable(pipe));
}

TEST(WakePipeTest, AFullOneNeitherBlocksNorChangesTheErrorNumber) {
  WakePipe pipe;
  errno = ERANGE;
  for (int i = 0; i < 100'000; ++i) pipe.Wake(); // a pipe holds 65,536 bytes
  EXPECT_EQ(errno, ERANGE);
  EXPECT_TRUE(IsReadable(pipe));
}

} // namespace
} // namespace portico::system
