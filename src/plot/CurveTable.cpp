#include "plot/CurveTable.h"

#include <array>
#include <charconv>
#include <string_view>

namespace portico::plot {
namespace {

constexpr std::size_t MostDescribed = 20;

double ValueAt(const numbers::Series& data, const std::optional<double>& place) {
  if (!place || data.Empty()) return numbers::Gap;
  const auto [first, last] = data.Within({data.Place(0), *place});
  return last > first ? data.Value(last - 1) : numbers::Gap;
}

} // namespace

std::vector<CurveRow> TableOf(const std::vector<Curve>& curves, const numbers::Range& seen, const Cursors& cursors) {
  std::vector<CurveRow> rows;
  rows.reserve(curves.size());
  for (const Curve& curve : curves) {
    rows.push_back({curve.Name,
                    curve.Data->StatisticsOver(seen),
                    {ValueAt(*curve.Data, cursors[0]), ValueAt(*curve.Data, cursors[1])}});
  }
  return rows;
}

String NumberText(double number, int digits) {
  if (numbers::IsGap(number)) return {};
  if (numbers::IsOverload(number)) return number > 0 ? u"overload" : u"-overload";
  std::array<char, 32> text{};
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general, digits);
  return FromAscii(std::string_view(text.data(), static_cast<std::size_t>(end - text.data())));
}

String Description(const std::vector<CurveRow>& rows, const String& fault) {
  String text = fault;
  for (std::size_t i = 0; i < rows.size() && i < MostDescribed; ++i) {
    const numbers::Statistics& seen = rows[i].Seen;
    if (!text.empty()) text += u" ";
    text += rows[i].Name + u": " + ToText(static_cast<std::int64_t>(seen.Count)) +
            (seen.Count == 1 ? u" value" : u" values");
    if (seen.Count > 0) text += u", minimum " + NumberText(seen.Minimum) + u", maximum " + NumberText(seen.Maximum);
    if (seen.Gaps > 0) text += u", gaps " + ToText(static_cast<std::int64_t>(seen.Gaps));
    if (seen.Overloads > 0) text += u", overloads " + ToText(static_cast<std::int64_t>(seen.Overloads));
    text += u".";
  }
  return text;
}

} // namespace portico::plot
