#include "numbers/AxisTicks.h"

#include "numbers/SpecialValues.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace portico::numbers {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Letters of seven pixels.
AxisRoom Wide(double length) {
  return {length, [](StringView label) { return 7.0 * static_cast<double>(label.size()); }};
}

/// Lines of 14 pixels, one below the other.
AxisRoom High(double length) {
  return {length, [](StringView) { return 14.0; }};
}

std::vector<String> LabelsOf(const AxisTicks& axis) {
  std::vector<String> labels;
  for (const Tick& tick : axis.Ticks) labels.push_back(tick.Label);
  return labels;
}

std::vector<String> Labels(Range range, double length, StringView unit = {}) {
  return LabelsOf(ValueTicks(range, Wide(length), unit));
}

std::vector<String> Times(Range range, double length) { return LabelsOf(TimeTicks(range, Wide(length))); }

TEST(AxisTicks, StepsAreOneTwoOrFive) {
  EXPECT_THAT(Labels({0, 5}, 150), ElementsAre(u"0", u"1", u"2", u"3", u"4", u"5"));
  EXPECT_THAT(Labels({0, 10}, 120), ElementsAre(u"0", u"2", u"4", u"6", u"8", u"10"));
  EXPECT_THAT(Labels({0, 20}, 100), ElementsAre(u"0", u"5", u"10", u"15", u"20"));
  EXPECT_THAT(Labels({-1, 1}, 200), ElementsAre(u"-1.0", u"-0.5", u"0", u"0.5", u"1.0"));
}

TEST(AxisTicks, PlacesAreTheDoublesOfTheirLabels) {
  const AxisTicks axis = ValueTicks({0.1, 0.7}, Wide(520));
  std::vector<double> places;
  for (const Tick& tick : axis.Ticks) places.push_back(tick.Place);
  EXPECT_THAT(places, ElementsAre(0.1, 0.15, 0.2, 0.25, 0.3, 0.35, 0.4, 0.45, 0.5, 0.55, 0.6, 0.65, 0.7));
}

TEST(AxisTicks, TickAtAnEndThatRoundingMovedIsThere) {
  const Range range{std::nextafter(1, 2), 5};
  const AxisTicks axis = ValueTicks(range, Wide(150));
  EXPECT_THAT(LabelsOf(axis), ElementsAre(u"1", u"2", u"3", u"4", u"5"));
  EXPECT_EQ(axis.Ticks.front().Place, range.From);
}

TEST(AxisTicks, APrefixServesTheWholeAxis) {
  EXPECT_THAT(Labels({0, 0.003}, 200), ElementsAre(u"0", u"1 m", u"2 m", u"3 m"));
  EXPECT_THAT(Labels({0, 3E-6}, 200), ElementsAre(u"0", u"1 \u00B5", u"2 \u00B5", u"3 \u00B5"));
  EXPECT_THAT(Labels({0, std::nextafter(1000, 0)}, 200), ElementsAre(u"0", u"200", u"400", u"600", u"800", u"1000"));
  EXPECT_THAT(Labels({0, 15'000}, 200), ElementsAre(u"0", u"5 k", u"10 k", u"15 k"));
  EXPECT_THAT(Labels({0.5, 1.5}, 140), ElementsAre(u"0.5", u"1.0", u"1.5"));
  EXPECT_THAT(Labels({9.9E8, 1.01E9}, 200), ElementsAre(u"0.99 G", u"1.00 G", u"1.01 G"));
}

TEST(AxisTicks, EachPrefixIsThatOfItsThousand) {
  const StringView prefixes[] = {u" a", u" f", u" p", u" n", u" \u00B5", u" m", u"",
                                 u" k", u" M", u" G", u" T", u" P",      u" E"};
  for (int i = 0; i < 13; ++i) {
    const double scale = std::pow(10.0, 3 * i - 18);
    EXPECT_EQ(Labels({scale, 3 * scale}, 100).back(), u"3" + String(prefixes[i])) << i;
    EXPECT_EQ(Labels({100 * scale, 300 * scale}, 120).back(), u"300" + String(prefixes[i])) << i;
  }
}

TEST(AxisTicks, BeyondThePrefixesLabelsHaveExponents) {
  EXPECT_THAT(Labels({0, 3E30}, 200), ElementsAre(u"0", u"1e+30", u"2e+30", u"3e+30"));
  EXPECT_THAT(Labels({1E-30, 2E-30}, 160), ElementsAre(u"1.0e-30", u"1.5e-30", u"2.0e-30"));
}

TEST(AxisTicks, UnitStandsBehindThePrefix) {
  EXPECT_THAT(Labels({0, 0.002}, 150, u"V"), ElementsAre(u"0 V", u"1 mV", u"2 mV"));
  EXPECT_THAT(Labels({0, 2}, 120, u"V"), ElementsAre(u"0 V", u"1 V", u"2 V"));
}

TEST(AxisTicks, LabelsOfOneHeightTakeThatRoom) {
  EXPECT_EQ(ValueTicks({0, 10}, High(308)).Ticks.size(), 11U);
  EXPECT_EQ(ValueTicks({0, 10}, High(279)).Ticks.size(), 6U);
}

TEST(AxisTicks, SecondsOfAMinuteAreValues) {
  EXPECT_THAT(Times({0, 4}, 220), ElementsAre(u"0 s", u"1 s", u"2 s", u"3 s", u"4 s"));
  EXPECT_THAT(Times({0, 0.002}, 180), ElementsAre(u"0 s", u"1 ms", u"2 ms"));
  EXPECT_EQ(TimeTicks({0, 4}, Wide(220)).Form, u"");
}

TEST(AxisTicks, MinutesAreDividedAsClocksAre) {
  EXPECT_THAT(Times({0, 60}, 200), ElementsAre(u"0:00", u"0:15", u"0:30", u"0:45", u"1:00"));
  EXPECT_THAT(Times({0, 120}, 220), ElementsAre(u"0:00", u"0:30", u"1:00", u"1:30", u"2:00"));
  EXPECT_THAT(Times({-60, 60}, 260), ElementsAre(u"-1:00", u"-0:30", u"0:00", u"0:30", u"1:00"));
  EXPECT_THAT(Times({0, 600}, 120), ElementsAre(u"0:00", u"5:00", u"10:00"));
  EXPECT_THAT(Times({68, 70}, 75), ElementsAre(u"1:08", u"1:09", u"1:10"));
  EXPECT_EQ(TimeTicks({0, 600}, Wide(120)).Form, u"min:s");
}

TEST(AxisTicks, HoursLeaveOutSecondsThatAreAllNull) {
  EXPECT_THAT(Times({0, 7200}, 230), ElementsAre(u"0:00", u"0:30", u"1:00", u"1:30", u"2:00"));
  EXPECT_EQ(TimeTicks({0, 7200}, Wide(230)).Form, u"h:min");
  EXPECT_THAT(Times({3600, 3720}, 150), ElementsAre(u"1:00", u"1:01", u"1:02"));
  EXPECT_EQ(TimeTicks({3600, 3720}, Wide(150)).Form, u"h:min");
  EXPECT_THAT(Times({3600, 3660}, 150), ElementsAre(u"1:00:00", u"1:00:30", u"1:01:00"));
  EXPECT_EQ(TimeTicks({3600, 3660}, Wide(150)).Form, u"h:min:s");
  EXPECT_THAT(Times({0, 172'800}, 150), ElementsAre(u"0:00", u"24:00", u"48:00"));
  EXPECT_THAT(Times({0, 864'000}, 130), ElementsAre(u"0:00", u"120:00", u"240:00"));
  EXPECT_THAT(Times({0, 8'640'000}, 320),
              ElementsAre(u"0:00", u"480:00", u"960:00", u"1440:00", u"1920:00", u"2400:00"));
}

TEST(AxisTicks, PartsOfASecondAreToldFarFromTheBeginning) {
  EXPECT_THAT(Times({3599, 3600}, 200), ElementsAre(u"0:59:59.0", u"0:59:59.5", u"1:00:00.0"));
  EXPECT_THAT(Times({75.25, 75.26}, 160), ElementsAre(u"1:15.250", u"1:15.255", u"1:15.260"));
}

TEST(AxisTicks, RangeThatCannotBeShownHasNoTicks) {
  for (const Range& range : {Range{1, 1}, Range{2, 1}, Range{Gap, 1}, Range{0, Overload}, Range{-1E308, 1E308}}) {
    EXPECT_THAT(ValueTicks(range, Wide(500)).Ticks, IsEmpty());
    EXPECT_THAT(TimeTicks(range, Wide(500)).Ticks, IsEmpty());
  }
  EXPECT_THAT(TimeTicks({0, 1E16}, Wide(500)).Ticks, IsEmpty());
}

TEST(AxisTicks, RangeOfFewDoublesHasTicksThatDiffer) {
  for (const Range& range : {Range{1, std::nextafter(1, 2)}, Range{1E15, 1E15 + 1}, Range{1E308, 1.5E308},
                             Range{0, 5E-324}, Range{0, 1E-307}, Range{-1E-300, 1E-300}}) {
    const AxisTicks axis = ValueTicks(range, Wide(500));
    for (std::size_t i = 1; i < axis.Ticks.size(); ++i) {
      EXPECT_LT(axis.Ticks[i - 1].Place, axis.Ticks[i].Place) << range.From;
      EXPECT_NE(axis.Ticks[i - 1].Label, axis.Ticks[i].Label) << range.From;
    }
  }
}

TEST(AxisTicks, NoRoomMeansFewTicksAndNoFailure) {
  for (const double length : {0.0, 1.0, 6.0}) {
    EXPECT_LE(ValueTicks({0, 10}, Wide(length)).Ticks.size(), 1U);
    EXPECT_LE(TimeTicks({0, 1000}, Wide(length)).Ticks.size(), 1U);
  }
}

/// The places, in order and within the range, with room between their labels.
void ExpectReadable(const AxisTicks& axis, const Range& range, const AxisRoom& room) {
  double free = -1E9;
  for (const Tick& tick : axis.Ticks) {
    ASSERT_GE(tick.Place, range.From);
    ASSERT_LE(tick.Place, range.To);
    const double middle = (tick.Place - range.From) / (range.To - range.From) * room.Length;
    const double half = room.ExtentOf(tick.Label) / 2;
    ASSERT_GE(middle - half, free - 1E-6) << ToUtf8(tick.Label);
    free = middle + half + room.ExtentOf(u"0");
  }
}

double Read(const String& label) {
  static const String prefixes = u"afpn\u00B5m kMGTPE";
  const auto blank = label.find(u' ');
  const double number = ReadNumber(label.substr(0, blank)).value_or(Gap);
  if (blank == String::npos) return number;
  return number * std::pow(10.0, 3 * static_cast<double>(prefixes.find(label[blank + 1])) - 18);
}

TEST(AxisTicks, LabelsNeverMeetAndTellTheirPlaces) {
  std::mt19937 random(1);
  const auto between = [&random](double from, double to) {
    return from + (to - from) * static_cast<double>(random()) / 4294967296.0;
  };
  for (int round = 0; round < 3000; ++round) {
    const double size = std::pow(10.0, between(-25, 25));
    const double from = size * between(-3, 3);
    const Range range{from, from + size * std::pow(10.0, between(-6, 0.5))};
    const AxisRoom room = round % 3 == 0 ? High(between(100, 2000)) : Wide(between(200, 3000));
    const AxisTicks axis = ValueTicks(range, room);
    ExpectReadable(axis, range, room);
    for (const Tick& tick : axis.Ticks) {
      ASSERT_NEAR(Read(tick.Label), tick.Place, (range.To - range.From) * 1E-6) << ToUtf8(tick.Label);
    }
    const Range times{between(-1E5, 1E5), 0};
    const Range later{times.From, times.From + std::pow(10.0, between(-4, 6))};
    ExpectReadable(TimeTicks(later, room), later, room);
    ASSERT_GE(ValueTicks({from, from + size}, Wide(1000)).Ticks.size(), 3U);
    ASSERT_GE(TimeTicks({times.From, times.From + 1000}, Wide(1000)).Ticks.size(), 3U);
  }
}

} // namespace
} // namespace portico::numbers
