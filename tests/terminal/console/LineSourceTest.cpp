#include "terminal/console/LineSource.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace portico::terminal {
namespace {

using Next = std::optional<String>;

Next LineOf(LineSource& source) {
  auto next = source.Next();
  if (const auto* fault = std::get_if<TextFault>(&next)) {
    ADD_FAILURE() << fault->Reason;
    return {};
  }
  return std::get<Next>(next);
}

TEST(Describe, PutsNameLineAndColumnInFront) {
  EXPECT_EQ(Describe("a.cmd", {12, 3, "a reason"}), "a.cmd:12:3: a reason");
}

TEST(FileLines, GivesItsLinesInOrderThenNone) {
  FileLines lines("a.cmd", {u"*CLS", u"", u"*RST"});
  EXPECT_EQ(lines.Name(), "a.cmd");
  EXPECT_EQ(LineOf(lines), u"*CLS");
  EXPECT_EQ(LineOf(lines), u"");
  EXPECT_EQ(LineOf(lines), u"*RST");
  EXPECT_EQ(LineOf(lines), Next());
  EXPECT_EQ(LineOf(lines), Next());
}

TEST(FileLines, CanBeginAnewFromWherever) {
  FileLines lines("a.cmd", {u"*CLS", u"*RST"});
  for (int turn = 0; turn < 3; ++turn) {
    EXPECT_EQ(lines.LinesLeft(), 2U);
    EXPECT_EQ(LineOf(lines), u"*CLS");
    EXPECT_EQ(LineOf(lines), u"*RST");
    EXPECT_EQ(LineOf(lines), Next());
    EXPECT_TRUE(lines.Rewind());
  }
  EXPECT_EQ(LineOf(lines), u"*CLS");
  EXPECT_TRUE(lines.Rewind());
  EXPECT_EQ(LineOf(lines), u"*CLS");
}

class ReadCommandFileTest : public testing::Test {
protected:
  std::string File(const std::string& bytes) const {
    std::string path = folder / "lines.cmd";
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }

  static std::string FaultOf(const std::string& path) {
    const auto read = ReadCommandFile(path);
    const auto* fault = std::get_if<FileFault>(&read);
    return fault != nullptr ? fault->Text : "(none)";
  }

  const test::TemporaryFolder temporary;
  const std::filesystem::path& folder = temporary.Path();
};

TEST_F(ReadCommandFileTest, GivesTheLinesUnderThePathAsGiven) {
  const std::string path = File("\xEF\xBB\xBF*CLS\r\n\r\n*RST");
  auto read = ReadCommandFile(path);
  ASSERT_TRUE(std::holds_alternative<std::unique_ptr<LineSource>>(read));
  LineSource& source = *std::get<std::unique_ptr<LineSource>>(read);
  EXPECT_EQ(source.Name(), path);
  EXPECT_EQ(LineOf(source), u"*CLS");
  EXPECT_EQ(LineOf(source), u"");
  EXPECT_EQ(LineOf(source), u"*RST");
  EXPECT_EQ(LineOf(source), Next());
}

TEST_F(ReadCommandFileTest, EmptyFileHasNoLine) {
  auto read = ReadCommandFile(File(""));
  ASSERT_TRUE(std::holds_alternative<std::unique_ptr<LineSource>>(read));
  EXPECT_EQ(LineOf(*std::get<std::unique_ptr<LineSource>>(read)), Next());
}

TEST_F(ReadCommandFileTest, RefusedLineIsToldWithItsPlace) {
  const std::string path = File("*CLS\nAB\xFF\n");
  EXPECT_EQ(FaultOf(path), path + ":2:3: not UTF-8; save the file as UTF-8");
}

TEST_F(ReadCommandFileTest, MissingFileIsToldWithTheReason) {
  const std::string path = folder / "missing.cmd";
  EXPECT_EQ(FaultOf(path), path + ": cannot be opened: No such file or directory");
}

TEST_F(ReadCommandFileTest, DirectoryIsNoCommandFile) {
  EXPECT_EQ(FaultOf(folder.string()), folder.string() + ": is a directory; name a command file");
}

TEST_F(ReadCommandFileTest, EmptyPathIsNoCommandFile) {
  EXPECT_EQ(FaultOf(""), ": cannot be opened: No such file or directory");
}

TEST(FileLines, AllAreAtHandAndCounted) {
  FileLines lines("a.cmd", {u"A", u"B"});
  EXPECT_TRUE(lines.HasLineAtHand());
  EXPECT_EQ(lines.LinesLeft(), 2U);
  lines.Next();
  EXPECT_EQ(lines.LinesLeft(), 1U);
  lines.Next();
  EXPECT_FALSE(lines.HasLineAtHand());
  EXPECT_EQ(lines.LinesLeft(), 0U);
}

} // namespace
} // namespace portico::terminal
