#include "ui/plot/SavedFile.h"
#include "framework/errors/ErrorNumbers.h"
#include "support/ErrorReports.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace portico::test {
namespace {

namespace fs = std::filesystem;

class SavedFileTest : public testing::Test {
protected:
  SavedFileTest() { fs::create_directory(Folder); }
  ~SavedFileTest() override {
    fs::remove_all(Folder);
    HuntERR::Reset();
  }
  static std::string Content(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
  }
  String Name(const char* name) const { return (Folder / name).u16string(); }
  std::size_t Files() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(Folder), fs::directory_iterator()));
  }

  const fs::path Folder = fs::path(testing::TempDir()) / "portico-saved-file";
};

TEST_F(SavedFileTest, TakesItsNameWhenItIsKept) {
  std::ofstream(Folder / "plot.csv") << "before";
  SavedFile file(Name("plot.csv"));
  file.Write("one,");
  file.Write("two");
  EXPECT_EQ(Content(Folder / "plot.csv"), "before");
  file.Keep();
  EXPECT_EQ(Content(Folder / "plot.csv"), "one,two");
  EXPECT_EQ(Files(), 1U);
}

TEST_F(SavedFileTest, LeavesWhatWasThereIfItIsNotKept) {
  std::ofstream(Folder / "plot.csv") << "before";
  { SavedFile(Name("plot.csv")).Write("half"); }
  EXPECT_EQ(Content(Folder / "plot.csv"), "before");
  EXPECT_EQ(Files(), 1U);
}

TEST_F(SavedFileTest, WritesWhereALinkLeads) {
  std::ofstream(Folder / "there.csv") << "before";
  fs::create_symlink(Folder / "there.csv", Folder / "link.csv");
  SavedFile file(Name("link.csv"));
  file.Write("new");
  file.Keep();
  EXPECT_TRUE(fs::is_symlink(Folder / "link.csv"));
  EXPECT_EQ(Content(Folder / "there.csv"), "new");
}

TEST_F(SavedFileTest, AFullDiskIsToldAndWhatWasThereStays) {
  std::ofstream(Folder / "plot.csv") << "before";
  fs::create_symlink("/dev/full", Folder / "plot.csv.part");
  const auto raised = Raised([&] {
    SavedFile file(Name("plot.csv"));
    file.Write(std::string(100'000, 'x'));
    file.Keep();
  });
  EXPECT_EQ(raised.Number, ErrorNumber::CannotCarryOut);
  EXPECT_EQ(ToUtf8(String(raised.Description)),
            (Folder / "plot.csv").string() + " was not saved: No space left on device.");
  EXPECT_EQ(Content(Folder / "plot.csv"), "before");
}

TEST_F(SavedFileTest, AFewBytesOnAFullDiskAreToldToo) {
  const auto raised = Raised([] {
    SavedFile file(u"/dev/full");
    file.Write("x");
    file.Keep();
  });
  EXPECT_EQ(raised.Number, ErrorNumber::CannotCarryOut);
  EXPECT_TRUE(fs::exists("/dev/full"));
}

TEST_F(SavedFileTest, AFolderThatIsNotThereIsTold) {
  const auto raised = Raised([&] { SavedFile(Name("nowhere/plot.csv")); });
  EXPECT_EQ(raised.Number, ErrorNumber::CannotCarryOut);
  EXPECT_TRUE(ToUtf8(String(raised.Description)).ends_with("was not saved: No such file or directory."));
}

} // namespace
} // namespace portico::test
