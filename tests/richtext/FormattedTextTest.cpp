#include "richtext/FormattedText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace portico::richtext {
namespace {

CharacterFormat Colored(std::int32_t color) { return {.FontName = u"Sans", .FontSize = 10, .Color = color}; }

FormatRuns Runs(const std::vector<std::int32_t>& colors) {
  FormatRuns runs;
  for (const std::int32_t color : colors) runs.Append(1, Colored(color));
  return runs;
}

TEST(FormatRunsTest, NeighboursThatLookTheSameAreOne) {
  FormatRuns runs(2, Colored(1));
  runs.Append(0, Colored(2));
  runs.Append(3, Colored(1));
  runs.Append(1, Colored(2));
  EXPECT_EQ(runs.All(), (std::vector<FormatRun>{{5, Colored(1)}, {1, Colored(2)}}));
  runs.Append(Runs({2, 2, 3}));
  EXPECT_EQ(runs.All(), (std::vector<FormatRun>{{5, Colored(1)}, {3, Colored(2)}, {1, Colored(3)}}));
  runs.Append(FormatRuns());
  EXPECT_EQ(runs.All().size(), 3U);
}

TEST(FormatRunsTest, EqualsAModelOfSinglePlaces) {
  std::mt19937 random(7);
  std::vector<std::int32_t> model;
  FormatRuns runs;
  std::size_t longest = 0;
  for (int step = 0; step < 20000; ++step) {
    const std::size_t at = random() % (model.size() + 1);
    const std::size_t length = random() % (model.size() - at + 1);
    const auto from = model.begin() + static_cast<std::ptrdiff_t>(at);
    const auto to = from + static_cast<std::ptrdiff_t>(length);
    const auto color = static_cast<std::int32_t>(random() % 3);
    switch (random() % 8) {
    case 0:
    case 1:
    case 2: {
      const std::size_t more = random() % 8;
      runs.Append(more, Colored(color));
      model.insert(model.end(), more, color);
      break;
    }
    case 3:
      EXPECT_EQ(runs.Cut(at), Runs({from, model.end()}));
      model.erase(from, model.end());
      break;
    case 4: {
      EXPECT_EQ(runs.Copy(at, length), Runs({from, to}));
      std::size_t seen = 0;
      runs.Visit(at, length, [&](const CharacterFormat& format, std::size_t places) {
        EXPECT_EQ((FormatRun{places, format}), runs.Copy(at, length).All()[seen++]);
      });
      EXPECT_EQ(seen, runs.Copy(at, length).All().size());
      break;
    }
    default:
      runs.Transform(at, length, [&](CharacterFormat& format) { format.Color = (format.Color + 1) % 3; });
      std::for_each(from, to, [](std::int32_t& held) { held = (held + 1) % 3; });
      break;
    }
    longest = std::max(longest, model.size());
    ASSERT_EQ(runs, Runs(model));
    for (std::size_t i = 0; i < model.size(); ++i) ASSERT_EQ(runs.At(i).Color, model[i]);
  }
  EXPECT_GT(longest, 30U);
}

TEST(FormattedTextTest, PlainTextHasOneLineMoreThanLineEnds) {
  Formatting look = StandardFormatting(u"Sans", 10);
  look.Paragraph.Indent = 150;
  const FormattedText text = FormatPlain(u"ab\r\n\rc\n", look);
  ASSERT_EQ(text.size(), 4U);
  const std::vector<String> lines = {u"ab", u"", u"c", u""};
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_EQ(text[i], (FormattedLine{lines[i], {lines[i].size() + 1, look.Character}, look.Paragraph}));
  }
}

TEST(FormattedTextTest, LengthCountsALineEndAsTwo) {
  const Formatting look = StandardFormatting(u"Sans", 10);
  EXPECT_EQ(LengthOf(FormatPlain(u"", look)), 0);
  EXPECT_EQ(LengthOf(FormatPlain(u"ab", look)), 2);
  EXPECT_EQ(LengthOf(FormatPlain(u"ab\n\rc\r\n", look)), 9);
}

} // namespace
} // namespace portico::richtext
