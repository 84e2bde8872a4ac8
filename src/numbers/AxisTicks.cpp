#include "numbers/AxisTicks.h"

#include "numbers/Syntax.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace portico::numbers {
namespace {

/// So many times a power of ten.
struct Step {
  double Count;
  int Exponent;

  double Size() const { return Place(1); }
  /// The place of a tick. No double is a tenth, but ten is one to divide by.
  double Place(double tick) const {
    const double power = std::pow(10.0, std::abs(Exponent));
    return Exponent < 0 ? tick * Count / power : tick * Count * power;
  }
};

/// A number of the range that is the largest, its sign aside.
double LargestOf(const Range& range) { return std::max(std::abs(range.From), std::abs(range.To)); }

/// The power of ten that is not above the number, or the smallest that is of use here.
int DecadeOf(double number) {
  constexpr double least = 1E-300; // of which the inverse is a double, too
  if (number <= least) return -300;
  const int decade = static_cast<int>(std::floor(std::log10(number)));
  return Step{1, decade}.Size() > number ? decade - 1 : decade; // the logarithm may have been rounded up
}

String Fixed(double number, int decimals) {
  std::array<char, 400> text{}; // the largest double has 309 digits
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, decimals).ptr;
  return {text.data(), end};
}

template <class Label>
std::optional<std::vector<Tick>> Lay(const Range& range, const AxisRoom& room, const Step& step, const Label& label) {
  constexpr double rounding = 1E-9; // of a step
  const double first = std::ceil(range.From / step.Size() - rounding);
  const double last = std::floor(range.To / step.Size() + rounding);
  if (last - first >= room.Length) return {};
  const double gap = room.ExtentOf(u"0");
  double free = -std::numeric_limits<double>::infinity();
  std::vector<Tick> ticks;
  const auto count = static_cast<std::size_t>(std::max(0.0, last - first + 1));
  for (std::size_t n = 0; n < count; ++n) {
    const double i = first + static_cast<double>(n);
    const double place = std::clamp(step.Place(i), range.From, range.To);
    if (!ticks.empty() && place <= ticks.back().Place) return {};
    ticks.push_back({place, label(i, step)});
    const double middle = (place - range.From) / (range.To - range.From) * room.Length;
    const double half = room.ExtentOf(ticks.back().Label) / 2;
    if (middle - half < free) return {};
    free = middle + half + gap;
  }
  return ticks;
}

/// The ticks of the smallest step at which no labels meet. `next` tells the step behind another.
template <class Next, class Label>
std::vector<Tick> Smallest(const Range& range, const AxisRoom& room, Step step, const Next& next, const Label& label) {
  const double span = range.To - range.From;
  for (;; step = next(step)) {
    if (auto ticks = Lay(range, room, step, label)) return *ticks;
    if (step.Size() > span) return {};
  }
}

Step NextValueStep(const Step& step) {
  if (step.Count == 1) return {2, step.Exponent};
  if (step.Count == 2) return {5, step.Exponent};
  return {1, step.Exponent + 1};
}

/// The smallest that may come into question, at a pixel for each tick.
Step FirstValueStep(const Range& range, const AxisRoom& room) {
  return {1, DecadeOf((range.To - range.From) / std::max(room.Length, 1.0))};
}

/// Labels of one axis, which share a prefix or an exponent.
class ValueLabels {
public:
  ValueLabels(double largest, StringView unit) : m_unit(unit) {
    const int decade = DecadeOf(largest);
    const int thousands = decade >= 0 ? decade / 3 : -((2 - decade) / 3);
    m_prefixed = std::abs(thousands) <= Most;
    m_decade = m_prefixed ? 3 * thousands : decade;
    const int prefix = thousands + Most;
    if (m_prefixed && thousands != 0) m_prefix = Prefixes[static_cast<std::size_t>(prefix)];
  }

  String operator()(double tick, const Step& step) const {
    if (tick == 0) return m_unit.empty() ? u"0" : u"0 " + m_unit;
    const Step scaled{step.Count, step.Exponent - m_decade};
    String label = Fixed(scaled.Place(tick), std::max(0, -scaled.Exponent));
    if (!m_prefixed) label += (m_decade < 0 ? u"e-" : u"e+") + Counted(static_cast<std::uint64_t>(std::abs(m_decade)));
    if (!m_unit.empty() || !m_prefix.empty()) label += u' ';
    return label + m_prefix + m_unit;
  }

private:
  static constexpr int Most = 6;
  static constexpr std::array<StringView, 2 * Most + 1> Prefixes = {u"a", u"f", u"p", u"n", u"\u00B5", u"m", u"",
                                                                    u"k", u"M", u"G", u"T", u"P",      u"E"};

  String m_unit;
  String m_prefix;
  bool m_prefixed;
  int m_decade; ///< that labels leave out
};

constexpr double Minute = 60;
constexpr double Hour = 3600;
constexpr double Day = 86400;

/// Of more than half a second.
constexpr std::array<double, 17> TimeSteps = {1,      2,          5,          10,          15,          30,
                                              Minute, 2 * Minute, 5 * Minute, 10 * Minute, 15 * Minute, 30 * Minute,
                                              Hour,   2 * Hour,   3 * Hour,   6 * Hour,    12 * Hour};

Step NextTimeStep(const Step& step) {
  if (step.Exponent < 0) return NextValueStep(step);
  const auto* found = std::upper_bound(TimeSteps.begin(), TimeSteps.end(), step.Count);
  if (found != TimeSteps.end()) return {*found, 0};
  if (step.Count < Day) return {Day, 0};
  const Step days = NextValueStep({step.Count / Day, step.Exponent});
  return {days.Count * Day, days.Exponent};
}

String TwoDigits(double number) { return (number < 10 ? u"0" : u"") + Counted(static_cast<std::uint64_t>(number)); }

/// "1:05", with hours "1:00:05", without seconds "1:00"; a fraction as far as the step has one.
String TimeLabel(double tick, const Step& step, bool hours, bool seconds) {
  // In units of the step's last decimal, of which a double counts all.
  const double perSecond = std::pow(10.0, std::max(0, -step.Exponent));
  const double units = std::abs(tick) * step.Count * (step.Exponent > 0 ? std::pow(10.0, step.Exponent) : 1);
  const double whole = std::floor(units / perSecond);
  String label = tick < 0 ? u"-" : u"";
  const double minutes = std::floor(whole / Minute);
  if (hours) {
    label += Counted(static_cast<std::uint64_t>(minutes / 60)) + u":" + TwoDigits(std::fmod(minutes, 60));
  } else {
    label += Counted(static_cast<std::uint64_t>(minutes));
  }
  if (seconds) label += u":" + TwoDigits(std::fmod(whole, Minute));
  if (step.Exponent < 0) {
    label += Fixed(std::fmod(units, perSecond) / perSecond, -step.Exponent).substr(1); // without its 0
  }
  return label;
}

} // namespace

AxisTicks ValueTicks(const Range& range, const AxisRoom& room, StringView unit) {
  if (!range.IsWide()) return {};
  return {Smallest(range, room, FirstValueStep(range, room), NextValueStep, ValueLabels(LargestOf(range), unit)), {}};
}

AxisTicks TimeTicks(const Range& range, const AxisRoom& room) {
  const double largest = LargestOf(range);
  if (!range.IsWide() || largest > 1E15) return {};
  if (largest < Minute) return ValueTicks(range, room, u"s");
  const bool hours = largest >= Hour;
  const Step small = FirstValueStep(range, room);
  const Step step = small.Exponent < 0 ? small : Step{1, 0};
  Step chosen = step;
  auto ticks = Smallest(range, room, step, NextTimeStep, [&](double tick, const Step& used) {
    chosen = used;
    return TimeLabel(tick, used, hours, !hours || used.Size() < Minute);
  });
  const bool seconds = chosen.Size() < Minute;
  return {std::move(ticks), !hours ? u"min:s" : seconds ? u"h:min:s" : u"h:min"};
}

} // namespace portico::numbers
