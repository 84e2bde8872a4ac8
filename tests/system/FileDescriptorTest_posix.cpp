#include "system/FileDescriptor.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace portico::system {
namespace {

bool IsOpenInTheSystem(int descriptor) { return fcntl(descriptor, F_GETFD) != -1; }

std::array<int, 2> Pipe() {
  std::array<int, 2> ends{-1, -1};
  EXPECT_EQ(pipe(ends.data()), 0);
  return ends;
}

TEST(FileDescriptor, OwnsNothingAtFirst) { EXPECT_FALSE(FileDescriptor().IsOpen()); }

TEST(FileDescriptor, ClosesWhatItOwns) {
  const auto ends = Pipe();
  {
    const FileDescriptor reader(ends[0]);
    const FileDescriptor writer(ends[1]);
    EXPECT_TRUE(reader.IsOpen());
    EXPECT_EQ(reader.Get(), ends[0]);
    EXPECT_TRUE(IsOpenInTheSystem(ends[0]));
  }
  EXPECT_FALSE(IsOpenInTheSystem(ends[0]));
  EXPECT_FALSE(IsOpenInTheSystem(ends[1]));
}

TEST(FileDescriptor, MovingHandsTheOwnershipOver) {
  const auto ends = Pipe();
  const FileDescriptor writer(ends[1]);
  FileDescriptor target;
  {
    FileDescriptor source(ends[0]);
    FileDescriptor between(std::move(source));
    target = std::move(between);
  }
  EXPECT_EQ(target.Get(), ends[0]);
  EXPECT_TRUE(IsOpenInTheSystem(ends[0]));
}

} // namespace
} // namespace portico::system
