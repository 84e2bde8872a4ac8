#include "scpi/Syntax.h"

#include <gtest/gtest.h>

namespace portico::scpi {
namespace {

TEST(Syntax, EveryByteIsInOneClassAtMost) {
  for (int code = 0; code < 256; ++code) {
    const char byte = static_cast<char>(code);
    EXPECT_LE(int{IsDigit(byte)} + int{IsLetter(byte)} + int{IsWhiteSpace(byte)}, 1) << code;
  }
}

TEST(Syntax, ControlCharactersAreWhiteSpaceButTheLineFeedIsNot) {
  for (int code = 0; code <= ' '; ++code) EXPECT_EQ(IsWhiteSpace(static_cast<char>(code)), code != '\n') << code;
  EXPECT_FALSE(IsWhiteSpace('!'));
  EXPECT_FALSE(IsWhiteSpace('\x7F'));
  EXPECT_FALSE(IsWhiteSpace('\xA0'));
}

TEST(Syntax, OnlyAsciiLettersAreLetters) {
  for (const char letter : {'A', 'Z', 'a', 'z'}) EXPECT_TRUE(IsLetter(letter)) << letter;
  for (const char other : {'@', '[', '`', '{', '_', '\xC4', '\xE4'}) EXPECT_FALSE(IsLetter(other));
}

TEST(Syntax, OnlyLettersHaveAnUpperCase) {
  EXPECT_EQ(ToUpper('a'), 'A');
  EXPECT_EQ(ToUpper('z'), 'Z');
  for (const char same : {'A', '1', '`', '{', '\xE4'}) EXPECT_EQ(ToUpper(same), same);
}

} // namespace
} // namespace portico::scpi
