#include "application/CommandFiles.h"

#include "application/OwnFiles.h"
#include "completion/CommandList.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace portico {
namespace {

namespace fs = std::filesystem;

class CommandFilesTest : public testing::Test {
protected:
  CommandFilesTest() {
    fs::create_directory(Ground.At("user"));
    fs::create_directory(Ground.At("program"));
  }
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const auto& file : Files.Lists()) names.push_back(ToUtf8(file.Name));
    return names;
  }

  const test::TemporaryFolder Ground;
  CommandFiles Files{{.User = Ground.At("user"), .Program = Ground.At("program"), .Told = Ground.At("told/deep")}};
};

TEST_F(CommandFilesTest, TheUsersListsComeFirstByTheirNames) {
  Ground.Write("user/b.txt", "B:B\n");
  Ground.Write("user/a.txt", "A:A\n");
  Ground.Write("user/notes.md", "x");
  Ground.Write("program/S.txt", "S:S\n");
  fs::create_directory(Ground.At("user/folder.txt"));
  EXPECT_EQ(Names(), (std::vector<std::string>{"a.txt", "b.txt", "S.txt"}));
  EXPECT_EQ(Files.Lists().front().Bytes, "A:A\n");
}

TEST_F(CommandFilesTest, AFolderThatIsNotThereIsEmpty) {
  CommandFiles none({.User = Ground.At("nowhere"), .Program = {}, .Told = {}});
  EXPECT_TRUE(none.HaveListsChanged());
  EXPECT_TRUE(none.Lists().empty());
  EXPECT_FALSE(none.HaveListsChanged());
  EXPECT_EQ(none.Told(u"A").Bytes, "");
  EXPECT_FALSE(none.KeepTold(u"A", "x"));
}

TEST_F(CommandFilesTest, AListThatComesGoesOrGrowsIsAChange) {
  EXPECT_TRUE(Files.HaveListsChanged());
  Files.Lists();
  EXPECT_FALSE(Files.HaveListsChanged());
  Ground.Write("user/a.txt", "A:A\n");
  EXPECT_TRUE(Files.HaveListsChanged());
  Files.Lists();
  Ground.Write("user/a.txt", "A:A\nB:B\n");
  EXPECT_TRUE(Files.HaveListsChanged());
  Files.Lists();
  fs::remove(Ground.At("user/a.txt"));
  EXPECT_TRUE(Files.HaveListsChanged());
}

TEST_F(CommandFilesTest, OfALongFileNoMoreIsHeldThanTellsThatItIs) {
  Ground.Write("user/a.txt", std::string(completion::CommandList::MostBytes + 1000, 'A'));
  EXPECT_EQ(Files.Lists().front().Bytes.size(), completion::CommandList::MostBytes + 1);
}

TEST_F(CommandFilesTest, WhatAnInstrumentHasToldIsKeptForTheUserAlone) {
  EXPECT_EQ(Files.Told(u"MAKER,M1,1.0").Bytes, "");
  EXPECT_FALSE(Files.KeepTold(u"MAKER,M1,1.0", "A:A\n"));
  EXPECT_FALSE(Files.KeepTold(u"MAKER,M1,1.0", "B:B\n"));
  EXPECT_EQ(Files.Told(u"MAKER,M1,1.0").Bytes, "B:B\n");
  EXPECT_EQ(Files.Told(u"MAKER,M1,2.0").Bytes, "");
  const fs::path path = Ground.At("told/deep/MAKER,M1,1.0.txt");
  EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(std::distance(fs::directory_iterator(path.parent_path()), fs::directory_iterator()), 1);
}

TEST_F(CommandFilesTest, NoNameLeavesTheFolder) {
  for (const StringView name : {u"../../x,M,1", u"/etc/x", u"a b\u00B5", u".hidden"}) {
    ASSERT_FALSE(Files.KeepTold(String(name), ToUtf8(name)));
  }
  for (const StringView name : {u"../../x,M,1", u"/etc/x", u"a b\u00B5", u".hidden"}) {
    EXPECT_EQ(Files.Told(String(name)).Bytes, ToUtf8(name));
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(Ground.At("told/deep")), fs::directory_iterator()), 4);
  EXPECT_TRUE(fs::exists(Ground.At("told/deep/%2E.%2F..%2Fx,M,1.txt")));
}

TEST_F(CommandFilesTest, WhatCannotBeKeptIsToldAndNothingIsLost) {
  Ground.Write("told", "in the way");
  const auto fault = Files.KeepTold(u"A", "A:A\n");
  ASSERT_TRUE(fault);
  EXPECT_EQ(ToUtf8(*fault), "What the instrument has told cannot be kept in " + Ground.At("told/deep/A.txt") + ".");
}

TEST(DataDirectoryTest, IsNamedOrInTheHomeDirectory) {
  EXPECT_EQ(DataDirectory({"/data", "/home/me"}), fs::path("/data/portico"));
  EXPECT_EQ(DataDirectory({"data", "/home/me"}), fs::path("/home/me/.local/share/portico"));
  EXPECT_EQ(DataDirectory({"", ""}), fs::path());
}

} // namespace
} // namespace portico
