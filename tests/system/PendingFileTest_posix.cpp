#include "system/PendingFile.h"

#include "support/Files.h"
#include "support/ProcessRights.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <iterator>

namespace portico::system {
namespace {

namespace fs = std::filesystem;

class PendingFileTest : public testing::Test {
protected:
  std::ptrdiff_t Files() const {
    return std::distance(fs::directory_iterator(Folder.Path()), fs::directory_iterator());
  }

  const test::TemporaryFolder Folder;
};

TEST_F(PendingFileTest, TakesItsNameWhenItIsWhole) {
  Folder.Write("plot.csv", "before");
  PendingFile file(Folder.At("plot.csv"));
  EXPECT_EQ(file.Open(), 0);
  EXPECT_EQ(file.Write("one,"), 0);
  EXPECT_EQ(file.Write("two"), 0);
  EXPECT_EQ(Folder.Read("plot.csv"), "before");
  EXPECT_EQ(file.Commit(), 0);
  EXPECT_EQ(Folder.Read("plot.csv"), "one,two");
  EXPECT_EQ(Files(), 1);
}

TEST_F(PendingFileTest, WhatIsNotCommittedLeavesNothing) {
  Folder.Write("plot.csv", "before");
  {
    PendingFile file(Folder.At("plot.csv"));
    EXPECT_EQ(file.Open(), 0);
    EXPECT_EQ(file.Write("half"), 0);
    EXPECT_EQ(Files(), 2);
  }
  EXPECT_EQ(Folder.Read("plot.csv"), "before");
  EXPECT_EQ(Files(), 1);
}

TEST_F(PendingFileTest, WritesWhereALinkLeads) {
  Folder.Write("there.csv", "before");
  fs::create_symlink(Folder.At("there.csv"), Folder.At("link.csv"));
  PendingFile file(Folder.At("link.csv"));
  EXPECT_EQ(file.Open(), 0);
  EXPECT_EQ(file.Write("new"), 0);
  EXPECT_EQ(file.Commit(), 0);
  EXPECT_TRUE(fs::is_symlink(Folder.At("link.csv")));
  EXPECT_EQ(Folder.Read("there.csv"), "new");
}

TEST_F(PendingFileTest, ADiskThatIsFullIsToldAndWhatWasThereStays) {
  Folder.Write("plot.csv", "before");
  {
    PendingFile file(Folder.At("plot.csv"));
    EXPECT_EQ(file.Open(), 0);
    const test::FileSizeLimit limit(1000);
    EXPECT_EQ(file.Write(std::string(100'000, 'x')), EFBIG);
  }
  EXPECT_EQ(Folder.Read("plot.csv"), "before");
  EXPECT_EQ(Files(), 1);
}

TEST_F(PendingFileTest, WhatIsNoPlainFileIsWrittenAsItIs) {
  PendingFile file("/dev/full");
  EXPECT_EQ(file.Open(), 0);
  EXPECT_EQ(file.Write("x"), ENOSPC);
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(PendingFileTest, AFolderThatIsNotThereIsTold) {
  EXPECT_EQ(PendingFile(Folder.At("nowhere/plot.csv")).Open(), ENOENT);
  EXPECT_EQ(Files(), 0);
}

} // namespace
} // namespace portico::system
