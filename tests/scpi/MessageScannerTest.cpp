#include "scpi/MessageScanner.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace portico::scpi {
namespace {

using Positions = std::vector<std::size_t>;

/// Where the wanted bytes stand, however the text is cut into pieces.
Positions Found(std::string_view text, std::string_view wanted) {
  Positions whole;
  for (std::size_t piece = text.size() + 1; piece > 0; --piece) {
    MessageScanner scanner(wanted);
    Positions positions;
    for (std::size_t at = 0; at < text.size();) {
      bool found = false;
      at += scanner.Scan(text.substr(at, piece), found);
      if (found) positions.push_back(at - 1);
    }
    if (piece > text.size()) whole = positions;
    EXPECT_EQ(positions, whole) << "in pieces of " << piece;
  }
  return whole;
}

TEST(MessageScanner, FindsWhatStandsOutsideOfStringsAndBlocks) {
  EXPECT_EQ(Found("A 1;B 2;C", ";"), (Positions{3, 7}));
  EXPECT_EQ(Found("A \"x;y\";B ';';C", ";"), (Positions{7, 13}));
  EXPECT_EQ(Found("A \"x\"\";\";B", ";"), (Positions{8}));
  EXPECT_EQ(Found("A #13;;;;B", ";"), (Positions{8}));
  EXPECT_EQ(Found("A #0;;;", ";"), (Positions{}));
}

TEST(MessageScanner, FindsOnlyWhatIsWanted) {
  EXPECT_EQ(Found("A 1,2;B", ","), (Positions{3}));
  EXPECT_EQ(Found("A 1,2;B\n", "\n"), (Positions{7}));
  EXPECT_EQ(Found("A 1,2;B\n", ",;\n"), (Positions{3, 5, 7}));
}

TEST(MessageScanner, AQuoteOpensAStringOnlyWhereDataMayBegin) {
  EXPECT_EQ(Found("A\";B;\"", ";"), (Positions{2, 4}));
  EXPECT_EQ(Found("\"A;B", ";"), (Positions{2}));
  EXPECT_EQ(Found("A 1\";B", ";"), (Positions{4}));
  EXPECT_EQ(Found("A 1,\";B", ";"), (Positions{}));
}

TEST(MessageScanner, ALineFeedEndsAnOpenString) { EXPECT_EQ(Found("A \"x\nB;C", "\n;"), (Positions{4, 6})); }

TEST(MessageScanner, TellsWhetherItStandsInData) {
  const auto inside = [](std::string_view text) {
    MessageScanner scanner("\n");
    bool found = false;
    scanner.Scan(text, found);
    return scanner.InsideData();
  };
  for (const char* text : {"A \"", "A \"x\"\"", "A '", "A #", "A #3", "A #13ab", "A #0x"})
    EXPECT_TRUE(inside(text)) << text;
  for (const char* text : {"", "A", "A ", "A \"x\"", "A #13abc", "A 1,"}) EXPECT_FALSE(inside(text)) << text;
}

} // namespace
} // namespace portico::scpi
