#include "completion/LineReading.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::completion {
namespace {

/// Each line with its number in front, a bar behind.
std::string Lines(std::string_view text) {
  std::string lines;
  ForEachLine(text, [&lines](std::string_view line, std::size_t number) {
    lines += std::to_string(number) + ' ' + std::string(line) + '|';
  });
  return lines;
}

TEST(LineReading, LinesComeWithoutTheirEnds) {
  EXPECT_EQ(Lines("one\ntwo\r\nthree"), "1 one|2 two|3 three|");
  EXPECT_EQ(Lines("one\r"), "1 one|");
  EXPECT_EQ(Lines("o\rne\n"), "1 o\rne|");
}

TEST(LineReading, EmptyLinesAreCountedAlone) {
  EXPECT_EQ(Lines("\n \t\r\none\n\n two \n"), "3 one|5  two |");
  EXPECT_EQ(Lines(""), "");
}

} // namespace
} // namespace portico::completion
