#include "application/LineFile.h"

#include "support/Files.h"
#include "support/ProcessRights.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace portico {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<String>;

const std::string Heading = "# Lines that were sent with Tolvane Portico\n";

class LineFileTest : public ::testing::Test {
protected:
  std::string Bytes() const { return m_folder.Read("state/sent-lines"); }
  void Write(const std::string& bytes) const {
    fs::create_directories(m_path.parent_path());
    test::WriteFile(m_path, bytes);
  }
  std::string About(const char* what, const char* reason) const {
    return std::string(what) + " " + m_path.string() + ": " + reason + ".";
  }

  const test::TemporaryFolder m_folder;
  const fs::path m_path = m_folder.Path() / "state" / "sent-lines";
  LineFile File{m_path};
};

std::string Text(const std::optional<String>& fault) { return ToUtf8(fault.value_or(u"no fault")); }

TEST_F(LineFileTest, WhereNothingWasKeptThereIsNothing) {
  const auto [lines, fault] = File.Read();
  EXPECT_EQ(lines, Lines{});
  EXPECT_EQ(Text(fault), "no fault");
  EXPECT_FALSE(fs::exists(m_path.parent_path())) << "reading makes no folder";
}

TEST_F(LineFileTest, KeepsLinesAsText) {
  EXPECT_EQ(Text(File.Append({u"*IDN?", u"DISP \"\u00B5\u03A9\"  "})), "no fault");
  EXPECT_EQ(Text(File.Append({u"\t*RST"})), "no fault");
  EXPECT_EQ(Bytes(), Heading + "*IDN?\nDISP \"\u00B5\u03A9\"  \n\t*RST\n");
  EXPECT_EQ(LineFile(m_path).Read().Lines, (Lines{u"*IDN?", u"DISP \"\u00B5\u03A9\"  ", u"\t*RST"}));
}

TEST_F(LineFileTest, IsForItsOwnerAlone) {
  File.Append({u"*IDN?"});
  EXPECT_EQ(fs::status(m_path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(fs::status(m_path.parent_path()).permissions(), fs::perms::owner_all);
  fs::permissions(m_path, fs::perms::owner_all | fs::perms::group_read | fs::perms::others_read);
  File.Append({u"*RST"});
  EXPECT_EQ(fs::status(m_path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(LineFileTest, TwoProgramsLoseNothing) {
  LineFile other(m_path);
  const auto write = [](LineFile& file, char16_t mark) {
    for (int i = 0; i < 200; ++i) {
      while (file.Append({String(1, mark) + ToText(std::int64_t{i})})) {
      }
    }
  };
  std::thread thread([&] { write(other, u'b'); });
  write(File, u'a');
  thread.join();
  const Lines lines = File.Read().Lines;
  EXPECT_EQ(lines.size(), 400U);
  for (const char16_t mark : {u'a', u'b'}) {
    std::int64_t next = 0;
    for (const String& line : lines) {
      if (line.front() != mark) continue;
      EXPECT_EQ(ToUtf8(line.substr(1)), std::to_string(next++));
    }
  }
}

TEST_F(LineFileTest, TwoProgramsLoseNothingWhileItIsShortened) {
  LineFile mine(m_path, {.Lines = 100, .Bytes = 100'000});
  LineFile other(m_path, {.Lines = 100, .Bytes = 100'000});
  const auto write = [](LineFile& file, char16_t mark) {
    for (int i = 0; i < 300; ++i) {
      while (file.Append({String(1, mark) + ToText(std::int64_t{i})})) {
      }
    }
  };
  std::thread thread([&] { write(other, u'b'); });
  write(mine, u'a');
  thread.join();
  EXPECT_TRUE(Bytes().starts_with(Heading));
  const Lines newest = mine.Read().Lines;
  ASSERT_EQ(newest.size(), 100U);
  // Whoever has come last is there to the end, and of the other one what was not too old, without a gap.
  EXPECT_EQ(newest.back().substr(1), u"299");
  for (const char16_t mark : {u'a', u'b'}) {
    std::optional<double> before;
    for (const String& line : newest) {
      if (line.front() != mark) continue;
      const auto number = ReadNumber(line.substr(1));
      ASSERT_TRUE(number) << ToUtf8(line);
      if (before) {
        EXPECT_EQ(*number, *before + 1) << ToUtf8(line);
      }
      before = number;
    }
  }
}

TEST_F(LineFileTest, OnlyTheNewestAreRead) {
  Write(Heading + "1\n2\n3\n4\n");
  EXPECT_EQ(LineFile(m_path, {.Lines = 2, .Bytes = 1000}).Read().Lines, (Lines{u"3", u"4"}));
  EXPECT_EQ(LineFile(m_path, {.Lines = 4, .Bytes = 1000}).Read().Lines, (Lines{u"1", u"2", u"3", u"4"}));
  EXPECT_EQ(LineFile(m_path, {.Lines = 9, .Bytes = 4}).Read().Lines, (Lines{u"3", u"4"})) << "whole lines at the cut";
  EXPECT_EQ(LineFile(m_path, {.Lines = 9, .Bytes = 5}).Read().Lines, (Lines{u"3", u"4"})) << "and no part of one";
}

TEST_F(LineFileTest, IsShortenedWhenItHasGrownByATenth) {
  LineFile file(m_path, {.Lines = 10, .Bytes = 1000});
  file.Read();
  for (int i = 1; i <= 11; ++i) file.Append({ToText(std::int64_t{i})});
  EXPECT_EQ(Bytes(), Heading + "1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n");
  EXPECT_EQ(Text(file.Append({u"12"})), "no fault");
  EXPECT_EQ(Bytes(), Heading + "3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n");
  EXPECT_EQ(fs::status(m_path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_FALSE(fs::exists(m_path.string() + ".new"));
}

TEST_F(LineFileTest, WhatOthersHaveMadeLongIsShortened) {
  std::string bytes = Heading;
  for (int i = 0; i < 20; ++i) bytes += "x\n";
  Write(bytes);
  LineFile file(m_path, {.Lines = 3, .Bytes = 1000});
  file.Read();
  file.Append({u"y"});
  EXPECT_EQ(Bytes(), Heading + "x\nx\ny\n");
}

TEST_F(LineFileTest, AHugeOneIsReadFromItsEndAndShortened) {
  Write(Heading + "first\n");
  fs::resize_file(m_path, std::uintmax_t{64} << 30); // a hole, which takes no room
  { std::ofstream(m_path, std::ios::app) << "\nlast\n"; }
  LineFile file(m_path);
  EXPECT_EQ(file.Read().Lines, Lines{u"last"});
  EXPECT_EQ(Text(file.Append({u"new"})), "no fault");
  EXPECT_LT(fs::file_size(m_path), 5U << 20);
  EXPECT_EQ(file.Read().Lines, (Lines{u"last", u"new"}));
}

TEST_F(LineFileTest, ALineThatIsNoTextIsPassedOver) {
  Write(Heading + "one\n\xFF\xFE\n" + std::string("a\0b\n", 4) + "a\rb\nbefore");
  EXPECT_EQ(File.Read().Lines, Lines{u"one"}) << "the last one is torn, too";
  File.Append({u"two"});
  EXPECT_EQ(File.Read().Lines, (Lines{u"one", u"before", u"two"}));
}

TEST_F(LineFileTest, AnotherFileIsLeftAlone) {
  for (const std::string& bytes : {std::string("my own notes\n"),
                                   std::string("\x7F"
                                               "ELF\0\1",
                                               6),
                                   Heading.substr(1)}) {
    Write(bytes);
    EXPECT_EQ(Text(File.Read().Fault),
              About("The lines that were sent before cannot be read from", "it is something else"));
    EXPECT_EQ(Text(File.Append({u"*IDN?"})),
              About("The lines that are sent cannot be kept in", "it is something else"));
    EXPECT_EQ(Text(File.Clear()), About("The lines that were sent cannot be removed from", "it is something else"));
    EXPECT_EQ(Bytes(), bytes);
  }
}

TEST_F(LineFileTest, WhatIsNoFileIsRefusedAtOnce) {
  fs::create_directories(m_path);
  EXPECT_EQ(Text(File.Read().Fault),
            About("The lines that were sent before cannot be read from", "it is something else"));
  EXPECT_EQ(Text(File.Append({u"*IDN?"})), About("The lines that are sent cannot be kept in", "Is a directory"));
  fs::remove(m_path);
  ASSERT_EQ(mkfifo(m_path.c_str(), 0600), 0);
  EXPECT_EQ(Text(File.Read().Fault),
            About("The lines that were sent before cannot be read from", "it is something else"));
  EXPECT_EQ(Text(File.Append({u"*IDN?"})), About("The lines that are sent cannot be kept in", "it is something else"));
}

TEST_F(LineFileTest, WhereNoFolderCanBeMadeItSaysSo) {
  m_folder.Write("state", "a file stands in the way");
  EXPECT_EQ(Text(File.Append({u"*IDN?"})), About("The lines that are sent cannot be kept in", "Not a directory"));
}

TEST_F(LineFileTest, AFullDiskLeavesWhatIsThere) {
  File.Append({u"one"});
  const std::string before = Bytes();
  const auto fault = [&] {
    const test::FileSizeLimit limit(before.size() + 5);
    return File.Append({u"a line for which there is no room"});
  }();
  EXPECT_EQ(Text(fault), About("The lines that are sent cannot be kept in", "File too large"));
  EXPECT_EQ(Bytes(), before);
}

TEST_F(LineFileTest, WhoeverHoldsItIsNotWaitedForLong) {
  File.Append({u"one"});
  const int held = open(m_path.c_str(), O_RDWR);
  ASSERT_GE(held, 0);
  ASSERT_EQ(flock(held, LOCK_EX), 0);
  EXPECT_EQ(Text(File.Append({u"two"})),
            About("The lines that are sent cannot be kept in", "another program holds it"));
  EXPECT_EQ(File.Read().Lines, Lines{u"one"}) << "reading waits for nobody";
  close(held);
  EXPECT_EQ(Text(File.Append({u"two"})), "no fault");
}

TEST_F(LineFileTest, IsCleared) {
  EXPECT_EQ(Text(File.Clear()), "no fault");
  EXPECT_FALSE(fs::exists(m_path));
  File.Append({u"one"});
  EXPECT_EQ(Text(File.Clear()), "no fault");
  EXPECT_EQ(Bytes(), "");
  EXPECT_EQ(File.Read().Lines, Lines{});
  LineFile(m_path).Append({u"two"});
  EXPECT_EQ(Bytes(), Heading + "two\n");
}

TEST_F(LineFileTest, ALinkStaysALink) {
  Write("");
  const fs::path target = m_folder.Path() / "elsewhere";
  fs::rename(m_path, target);
  fs::create_symlink(target, m_path);
  LineFile file(m_path, {.Lines = 1, .Bytes = 1000});
  file.Read();
  file.Append({u"one"});
  file.Append({u"two"});
  EXPECT_TRUE(fs::is_symlink(m_path));
  EXPECT_EQ(test::ReadFile(target), Heading + "two\n");
}

} // namespace
} // namespace portico
