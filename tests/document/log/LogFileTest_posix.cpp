#include "document/log/LogBench.h"
#include "document/log/LogFile.h"
#include "support/Files.h"
#include "support/ProcessRights.h"

#include <cerrno>
#include <filesystem>
#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

namespace portico::test {
namespace {

namespace fs = std::filesystem;

/// The disk of this machine, in a folder of the test's own.
class LogFileTest : public DocumentTest {
protected:
  ~LogFileTest() override { fs::permissions(m_folder, fs::perms::owner_all); }

  std::string Path(const std::string& name = "log.xml") const { return m_folder / name; }
  static void Put(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
  }
  static std::string Get(const std::string& path) { return ReadFile(path); }
  static Ref<CXMLDataStore> Store(const std::string& path, bool overwrite = false) {
    auto store = New<CXMLDataStore>();
    store->Initialize(FromUtf8(path).Text, overwrite);
    return store;
  }
  std::size_t FilesInFolder() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(m_folder), fs::directory_iterator()));
  }

private:
  const TemporaryFolder m_temporary;
  const fs::path& m_folder = m_temporary.Path();
};

TEST_F(LogFileTest, AStoreLeavesOneFileWithTheUsualPermissions) {
  const mode_t mask = umask(022);
  Store(Path())->OpenSession();
  umask(mask);
  EXPECT_EQ(FilesInFolder(), 1U);
  EXPECT_EQ(fs::status(Path()).permissions(), fs::perms(0644));
  EXPECT_EQ(Tell(Get(Path())).size(), 3U);
}

TEST_F(LogFileTest, AnInterruptionThatIsPastDoesNotDelayTheOpening) {
  Put(Path(), PlainLogOf(""));
  LogDisk disk;
  errno = EINTR; // of an earlier call; one that succeeds leaves it alone
  EXPECT_NE(disk.Open(Path(), ILogDisk::Access::Read), nullptr);
}

TEST_F(LogFileTest, ARewrittenLogKeepsItsPermissions) {
  Put(Path(), PlainLogOf("") + "<!-- behind -->");
  fs::permissions(Path(), fs::perms(0640));
  Store(Path())->OpenSession();
  EXPECT_EQ(fs::status(Path()).permissions(), fs::perms(0640));
  EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(LogFileTest, ASymbolicLinkStaysOne) {
  Put(Path("real.xml"), PlainLogOf("") + "<!-- behind -->");
  fs::create_symlink("real.xml", Path());
  Store(Path())->OpenSession();
  EXPECT_TRUE(fs::is_symlink(Path()));
  EXPECT_EQ(Tell(Get(Path("real.xml"))).size(), 3U);
}

TEST_F(LogFileTest, ALinkToNothingAndAnOverwrittenOneStayLinks) {
  fs::create_symlink("real.xml", Path());
  Store(Path())->OpenSession();
  EXPECT_TRUE(fs::is_symlink(Path()));
  EXPECT_EQ(Tell(Get(Path("real.xml"))).size(), 3U);
  Store(Path(), true);
  EXPECT_TRUE(fs::is_symlink(Path()));
  EXPECT_EQ(Tell(Get(Path("real.xml"))).size(), 1U);
}

TEST_F(LogFileTest, AnOverwrittenLogIsANewFile) {
  Put(Path(), PlainLogOf("<Session/>"));
  fs::create_hard_link(Path(), Path("kept"));
  Store(Path(), true);
  EXPECT_FALSE(fs::equivalent(Path(), Path("kept")));
  EXPECT_EQ(Get(Path("kept")), PlainLogOf("<Session/>"));
}

TEST_F(LogFileTest, AFileInTheOldOnesPlaceIsAnotherFile) {
  const auto store = Store(Path());
  store->OpenSession();
  fs::copy_file(Path(), Path("copy"));
  fs::rename(Path("copy"), Path());
  store->AppendDataEntityToStore(Entity(u"1"));
  const auto lines = Tell(Get(Path()));
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_EQ(lines[1], lines[3]); // the session in the copy, and the one of its own
}

TEST_F(LogFileTest, WhatIsNoPlainFileIsRefusedAndStays) {
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  fs::create_symlink("/dev/null", Path("null"));
  for (const char* name : {"pipe", "null"}) {
    for (const bool overwrite : {false, true}) {
      EXPECT_EQ(Raised([&] { Store(Path(name), overwrite); }).Number, 31037) << name;
      EXPECT_TRUE(fs::exists(Path(name)));
    }
  }
}

TEST_F(LogFileTest, NamesThatCannotBeAreRefused) {
  EXPECT_EQ(Raised([&] { Store(Path("missing") + "/log.xml"); }).Number, 75);
  EXPECT_EQ(Raised([&] { Store(Path(std::string(300, 'x'))); }).Number, 75);
  EXPECT_EQ(Raised([&] { Store(Path(std::string("a\0b", 3))); }).Number, 75);
  EXPECT_FALSE(fs::exists(Path("a")));
  fs::create_directory(Path("folder"));
  EXPECT_EQ(Raised([&] { Store(Path("folder")); }).Number, 75);
  EXPECT_TRUE(fs::is_directory(Path("folder")));
  EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(LogFileTest, ANameMayHaveAnyCharacters) {
  const std::string path = Path("m\xC3\xA9ss \xE2\x82\xAC <1>.xml");
  Store(path)->OpenSession();
  EXPECT_EQ(Tell(Get(path)).size(), 3U);
  const std::string longest = Path(std::string(250, 'x'));
  Store(longest)->OpenSession();
  EXPECT_EQ(Tell(Get(longest)).size(), 3U);
}

TEST_F(LogFileTest, ADiskThatIsFullForAWhileCostsNothing) {
  const auto store = Store(Path());
  store->OpenSession();
  store->AppendDataEntityToStore(Entity(u"1"));
  const std::string before = Get(Path());
  {
    const FileSizeLimit limit(before.size() + 50);
    for (const char16_t* text : {u"2", u"3"}) {
      const auto error = Raised([&] { store->AppendDataEntityToStore(Entity(text)); });
      EXPECT_EQ(error.Number, 75);
      EXPECT_EQ(FirstDescription(error),
                u"The file, " + FromUtf8(Path()).Text + u", cannot be written: File too large.");
      EXPECT_EQ(Get(Path()), before);
    }
  }
  store->AppendDataEntityToStore(Entity(u"4"));
  store->CloseSession();
  EXPECT_EQ(TextsOf(Get(Path())), (std::vector<std::string>{"3100", "3200", "3300", "3400"}));
}

TEST_F(LogFileTest, AStoreIsMadeWholeOrNotAtAll) {
  const FileSizeLimit limit(50);
  EXPECT_EQ(Raised([&] { Store(Path()); }).Number, 75);
  EXPECT_EQ(FilesInFolder(), 0U);
}

TEST_F(LogFileTest, AFileIsNoFolderForALog) {
  Put(Path("file"), "");
  EXPECT_EQ(Raised([&] { Store(Path("file") + "/log.xml"); }).Number, 75);
}

} // namespace
} // namespace portico::test
