#include "answers/AnswerFile.h"

#include "support/Files.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace portico::answers {
namespace {

namespace fs = std::filesystem;

class AnswerFileTest : public testing::Test {
protected:
  /// The names in the folder, with a blank behind each.
  std::string Names() const {
    std::string names;
    for (const auto& entry : fs::directory_iterator(Folder.Path())) names += entry.path().filename().string() + " ";
    return names;
  }
  /// What has failed; empty if nothing has.
  std::string Put(const std::string& name, std::initializer_list<std::string_view> pieces) const {
    AnswerFile file(Folder.At(name));
    if (file.Open()) {
      for (const std::string_view piece : pieces) file.Add(piece);
      file.Finish();
    }
    return ToUtf8(file.Fault());
  }

  const test::TemporaryFolder Folder;
};

TEST_F(AnswerFileTest, AppearsWhenItIsWhole) {
  AnswerFile file(Folder.At("a.bin"));
  ASSERT_TRUE(file.Open());
  EXPECT_TRUE(file.Add("#15he"));
  EXPECT_TRUE(file.Add("llo"));
  EXPECT_EQ(file.Done(), 8U);
  EXPECT_EQ(file.Total(), 5U);
  EXPECT_FALSE(fs::exists(Folder.At("a.bin")));
  EXPECT_TRUE(file.Finish());
  EXPECT_EQ(Names(), "a.bin ");
  EXPECT_EQ(Folder.Read("a.bin"), "hello");
}

TEST_F(AnswerFileTest, LeavesNothingOfAnAnswerThatDoesNotComeToItsEnd) {
  {
    AnswerFile file(Folder.At("a.bin"));
    ASSERT_TRUE(file.Open());
    EXPECT_TRUE(file.Add("1,2,"));
    EXPECT_NE(Names(), "");
  }
  EXPECT_EQ(Names(), "");
}

TEST_F(AnswerFileTest, WhatStoodThereStaysUntilTheAnswerIsWhole) {
  Folder.Write("a.bin", "older and longer");
  EXPECT_EQ(Put("a.bin", {"#15he"}),
            Folder.At("a.bin") + " was not written: the block is torn, of 5 bytes 2 are there");
  EXPECT_EQ(Folder.Read("a.bin"), "older and longer");
  EXPECT_EQ(Put("a.bin", {"new"}), "");
  EXPECT_EQ(Folder.Read("a.bin"), "new");
  EXPECT_EQ(Names(), "a.bin ");
}

TEST_F(AnswerFileTest, KeepsTheRightsOfWhatItTakesThePlaceOf) {
  Folder.Write("a.bin", "older");
  const auto rights = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
  fs::permissions(Folder.At("a.bin"), rights);
  EXPECT_EQ(Put("a.bin", {"new"}), "");
  EXPECT_EQ(fs::status(Folder.At("a.bin")).permissions(), rights);
}

TEST_F(AnswerFileTest, ALinkStaysALink) {
  Folder.Write("real.bin", "older");
  fs::create_symlink("real.bin", Folder.At("link.bin"));
  EXPECT_EQ(Put("link.bin", {"new"}), "");
  EXPECT_TRUE(fs::is_symlink(Folder.At("link.bin")));
  EXPECT_EQ(Folder.Read("real.bin"), "new");
}

TEST_F(AnswerFileTest, BlocksThatTurnOutToBeSeveralAreKeptAsTheyCame) {
  EXPECT_EQ(Put("a.bin", {"#13", "ab", "c", ",#1", "3def"}), "");
  EXPECT_EQ(Folder.Read("a.bin"), "#13abc,#13def");
  EXPECT_EQ(Names(), "a.bin ");
}

TEST_F(AnswerFileTest, AFullDiskIsTold) {
  AnswerFile file("/dev/full");
  ASSERT_TRUE(file.Open());
  EXPECT_FALSE(file.Add("hello"));
  EXPECT_EQ(file.Fault(), u"/dev/full cannot be written: No space left on device");
  EXPECT_FALSE(file.Add("hello"));
  EXPECT_FALSE(file.Finish());
  EXPECT_FALSE(file.IsTorn());
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(AnswerFileTest, AFolderThatIsNotThereIsTold) {
  EXPECT_EQ(Put("none/a.bin", {"1"}), Folder.At("none/a.bin") + " cannot be written: No such file or directory");
}

TEST_F(AnswerFileTest, AFolderIsNoFile) {
  fs::create_directory(Folder.At("folder"));
  EXPECT_EQ(Put("folder", {"1"}), Folder.At("folder") + " cannot be written: Is a directory");
  EXPECT_EQ(Names(), "folder ");
}

} // namespace
} // namespace portico::answers
