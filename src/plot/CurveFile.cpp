#include "plot/CurveFile.h"

#include <array>
#include <charconv>
#include <string>

namespace portico::plot {
namespace {

constexpr std::size_t PieceSize = 60000;

void AppendNumber(std::string& text, double number) {
  if (numbers::IsGap(number)) return;
  if (numbers::IsOverload(number)) {
    text += number > 0 ? "9.9E+37" : "-9.9E+37";
    return;
  }
  std::array<char, 32> digits{};
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  text.append(digits.data(), end);
}

std::string Quoted(StringView text) {
  std::string quoted = "\"";
  for (const char unit : ToUtf8(text)) {
    quoted += unit;
    if (unit == '"') quoted += unit;
  }
  return quoted + '"';
}

} // namespace

void WriteCurves(const std::vector<Curve>& curves, StringView placeHeading,
                 const std::function<void(std::string_view)>& write) {
  std::string piece = "Curve," + Quoted(placeHeading) + ",Value\r\n";
  for (const Curve& curve : curves) {
    const std::string name = Quoted(curve.Name);
    for (std::size_t i = 0; i < curve.Data->Size(); ++i) {
      piece += name;
      piece += ',';
      AppendNumber(piece, curve.Data->Place(i));
      piece += ',';
      AppendNumber(piece, curve.Data->Value(i));
      piece += "\r\n";
      if (piece.size() < PieceSize) continue;
      write(piece);
      piece.clear();
    }
  }
  write(piece);
}

} // namespace portico::plot
