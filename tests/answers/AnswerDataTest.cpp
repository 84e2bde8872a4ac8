#include "answers/AnswerData.h"

#include <gtest/gtest.h>

namespace portico::answers {
namespace {

struct Kept {
  std::string Data; // the prefix, too
  std::uint64_t Missing = 0;
};

Kept Keep(std::string_view answer, std::size_t pieceSize) {
  AnswerData data;
  std::string kept;
  bool prefixed = false;
  const auto take = [&](std::string_view bytes) {
    if (!prefixed && !data.Prefix().empty()) {
      prefixed = true;
      kept.insert(0, data.Prefix());
    }
    kept += bytes;
  };
  for (std::size_t i = 0; i < answer.size(); i += pieceSize) take(data.Take(answer.substr(i, pieceSize)));
  take(data.Finish());
  return {kept, data.Missing()};
}

/// The same whatever the pieces are.
std::string KeptOf(std::string_view answer) {
  const Kept whole = Keep(answer, answer.size() + 1);
  EXPECT_EQ(whole.Missing, 0U);
  for (std::size_t size = 1; size <= answer.size(); ++size) {
    EXPECT_EQ(Keep(answer, size).Data, whole.Data) << "in pieces of " << size;
    EXPECT_EQ(Keep(answer, size).Missing, 0U) << "in pieces of " << size;
  }
  return whole.Data;
}

TEST(AnswerData, OfABlockItsBytesAreKept) {
  EXPECT_EQ(KeptOf("#15hello"), "hello");
  EXPECT_EQ(KeptOf("#15he\r\n\n"), "he\r\n\n");
  EXPECT_EQ(KeptOf("#3005hello"), "hello");
  EXPECT_EQ(KeptOf(" #15hello \t"), "hello");
  EXPECT_EQ(KeptOf("#10"), "");
  EXPECT_EQ(KeptOf("#0any\n,;"), "any\n,;");
}

TEST(AnswerData, OfAnyOtherAnswerAllIsKept) {
  for (const char* answer : {"", "+1.5", " 1, 2\r\n3 ", "#H1F", "#", "#1", "# 15hello", "hello #15hello", "   "}) {
    EXPECT_EQ(KeptOf(answer), answer);
  }
  const std::string blanks(200, ' ');
  EXPECT_EQ(KeptOf(blanks + "#15hello"), blanks + "#15hello");
}

TEST(AnswerData, SeveralBlocksAreKeptWithTheirHeaders) {
  EXPECT_EQ(KeptOf("#13abc,#13def"), "#13abc,#13def");
  EXPECT_EQ(KeptOf(" #13abc  \r\n;1"), " #13abc  \r\n;1");
  const std::string blanks(200, ' ');
  EXPECT_EQ(KeptOf("#13abc" + blanks), "#13abc" + blanks) << "too many to be held back";
}

TEST(AnswerData, WhatIsMissingOfABlockIsTold) {
  EXPECT_EQ(Keep("#15he", 1).Missing, 3U);
  EXPECT_EQ(Keep("#15", 1).Missing, 5U);
}

TEST(AnswerData, TheLengthIsToldAsSoonAsItIsKnown) {
  AnswerData data;
  data.Take("#31");
  EXPECT_EQ(data.Length(), std::nullopt);
  data.Take("00");
  EXPECT_EQ(data.Length(), 100U);
}

} // namespace
} // namespace portico::answers
