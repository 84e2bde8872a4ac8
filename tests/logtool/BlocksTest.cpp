#include "logtool/Logs.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace portico::logtool {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

std::string Answer(const std::string& second, const std::string& bytes) {
  return test::ResponseOf(second, bytes + "\r\n");
}

class BlocksOutputTest : public testing::Test {
protected:
  /// What stands in front of the folder in all lines is left out.
  Result Write(const std::string& sessions, std::optional<std::size_t> session = {}) {
    auto result = RunOn(
        {.Wanted = Output::Blocks, .Files = {"-"}, .Selection = {.Session = session}, .Folder = m_folder.At("blocks")},
        Log(sessions));
    const std::string front = m_folder.Path().string() + "/";
    for (std::string* text : {&result.Out, &result.Err}) {
      for (auto place = text->find(front); place != std::string::npos; place = text->find(front)) {
        text->erase(place, front.size());
      }
    }
    return result;
  }
  std::string Read(const std::string& name) const { return m_folder.Read("blocks/" + name); }
  std::size_t Files() const {
    const fs::directory_iterator files(m_folder.At("blocks"));
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }

  test::TemporaryFolder m_folder;
};

TEST_F(BlocksOutputTest, EachBlockIsAFileWithTheBytesThatTheInstrumentSent) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  const std::string gif = "GIF89a\x01\0\x02\0\r\n"s;
  const auto result = Write(SessionOf(Element("Instruction", "01", "WAV:DATA?\r\n") + Answer("01", "#3256" + all) +
                                      Element("Instruction", "02", "HCOP?") + Answer("02", "#212" + gif)));
  EXPECT_EQ(result.Out, "blocks/block-1.bin: 256 bytes, WAV:DATA?\n"
                        "blocks/block-2.gif: 12 bytes, HCOP?\n");
  EXPECT_EQ(result.Err, "");
  EXPECT_EQ(result.Status, 0);
  EXPECT_EQ(Read("block-1.bin"), all);
  EXPECT_EQ(Read("block-2.gif"), gif) << "a line end that ends a block is the block's own";
}

TEST_F(BlocksOutputTest, OneAnswerMayHoldSeveral) {
  const auto result = Write(
      SessionOf(Answer("01", R"("#13no",#13a,b;1.5, #12cd,#HFF,'it''s,#11x',#14II*)" + "\0"s + ";x#11y,#0e,#11f")));
  EXPECT_EQ(result.Out, "blocks/block-1.bin: 3 bytes\n"
                        "blocks/block-2.bin: 2 bytes\n"
                        "blocks/block-3.tif: 4 bytes\n"
                        "blocks/block-4.bin: 6 bytes\n");
  EXPECT_EQ(Read("block-1.bin"), "a,b");
  EXPECT_EQ(Read("block-2.bin"), "cd");
  EXPECT_EQ(Read("block-4.bin"), "e,#11f") << "an indefinite one goes to the end";
}

TEST_F(BlocksOutputTest, AnswersWithoutBlocksMakeNoFolder) {
  const auto result =
      Write(SessionOf(Element("Instruction", "01", "DATA #15hello") + Answer("01", "+1.0E+00,\"#11\"")));
  EXPECT_EQ(result.Out, "");
  EXPECT_EQ(result.Status, 0);
  EXPECT_FALSE(fs::exists(m_folder.At("blocks")));
}

TEST_F(BlocksOutputTest, ATornBlockIsToldAndMakesNoFile) {
  const auto result = Write(SessionOf(Answer("01", "#3100abc") + Answer("02", "#11x")));
  EXPECT_EQ(result.Err, "portico-log: standard input: the block of 2004-11-01T16:42:01.000000000-5:00 is torn\n");
  EXPECT_EQ(result.Status, 1);
  EXPECT_EQ(result.Out, "blocks/block-1.bin: 1 bytes\n");
  EXPECT_EQ(Files(), 1U);
}

TEST_F(BlocksOutputTest, ACharacterThatStandsForNoByteIsTold) {
  const auto result = Write(SessionOf(Element("Response", "01", "#12\xC4\xA3z,#11x")));
  EXPECT_EQ(result.Err,
            "portico-log: standard input: the block of 2004-11-01T16:42:01.000000000-5:00 holds a character "
            "that stands for no byte\n");
  EXPECT_EQ(Read("block-1.bin"), "x");
}

TEST_F(BlocksOutputTest, WhatIsThereAlreadyIsLeftAloneAndTold) {
  fs::create_directory(m_folder.At("blocks"));
  m_folder.Write("blocks/block-1.bin", "mine");
  const auto result = Write(SessionOf(Answer("01", "#11x") + Answer("02", "#11y")));
  EXPECT_EQ(result.Err, "portico-log: standard input: blocks/block-1.bin is there already and was left alone\n");
  EXPECT_EQ(result.Status, 1);
  EXPECT_EQ(Read("block-1.bin"), "mine");
  EXPECT_EQ(Read("block-2.bin"), "y");
}

TEST_F(BlocksOutputTest, TheFirstThatCannotBeWrittenIsTheLastThatIsTried) {
  m_folder.Write("blocks", "a file");
  const auto result = Write(SessionOf(Answer("01", "#11x,#11y") + Answer("02", "#11z")));
  EXPECT_EQ(result.Err, "portico-log: standard input: blocks/block-1.bin cannot be written: Not a directory\n");
  EXPECT_EQ(result.Status, 1);
  EXPECT_EQ(result.Out, "");
}

TEST_F(BlocksOutputTest, OneSessionAloneMayBeWanted) {
  const std::string sessions =
      SessionOf(Answer("01", "#11x")) + SessionOf(Answer("02", "#11y")) + SessionOf(Answer("03", "#11z"));
  EXPECT_EQ(Write(sessions, 2).Out, "blocks/block-1.bin: 1 bytes\n");
  EXPECT_EQ(Read("block-1.bin"), "y");
}

} // namespace
} // namespace portico::logtool
