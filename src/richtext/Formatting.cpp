#include "richtext/Formatting.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

#include <cmath>
#include <optional>
#include <tuple>

namespace portico::richtext {
namespace {

template <class Format, class T>
struct Field {
  T Format::*Held;
  std::optional<T> SelectionFormat::*Described;
};
template <class Format, class T>
Field(T Format::*, std::optional<T> SelectionFormat::*) -> Field<Format, T>;

constexpr std::tuple CharacterFields{
    Field{&CharacterFormat::Bold, &SelectionFormat::SelBold},
    Field{&CharacterFormat::CharOffset, &SelectionFormat::SelCharOffset},
    Field{&CharacterFormat::Color, &SelectionFormat::SelColor},
    Field{&CharacterFormat::FontName, &SelectionFormat::SelFontName},
    Field{&CharacterFormat::FontSize, &SelectionFormat::SelFontSize},
    Field{&CharacterFormat::Italic, &SelectionFormat::SelItalic},
    Field{&CharacterFormat::StrikeThru, &SelectionFormat::SelStrikeThru},
    Field{&CharacterFormat::Underline, &SelectionFormat::SelUnderline},
};

constexpr std::tuple ParagraphFields{
    Field{&ParagraphFormat::Alignment, &SelectionFormat::SelAlignment},
    Field{&ParagraphFormat::Bullet, &SelectionFormat::SelBullet},
    Field{&ParagraphFormat::HangingIndent, &SelectionFormat::SelHangingIndent},
    Field{&ParagraphFormat::Indent, &SelectionFormat::SelIndent},
    Field{&ParagraphFormat::RightIndent, &SelectionFormat::SelRightIndent},
};

template <class Fields, class Action>
void ForEach(const Fields& fields, Action&& action) {
  std::apply([&](const auto&... field) { (action(field), ...); }, fields);
}

template <class Fields>
bool SetsAny(const Fields& fields, const SelectionFormat& changes) {
  return std::apply([&](const auto&... field) { return ((changes.*field.Described).has_value() || ...); }, fields);
}

template <class Fields, class Format>
void MixFields(const Fields& fields, SelectionFormat& description, const Format& format) {
  ForEach(fields, [&](const auto& field) {
    auto& described = description.*field.Described;
    if (described && *described != format.*field.Held) described.reset();
  });
}

template <class Fields, class Format>
void ApplyFields(const Fields& fields, const SelectionFormat& changes, Format& format) {
  ForEach(fields, [&](const auto& field) {
    if (changes.*field.Described) format.*field.Held = *(changes.*field.Described);
  });
}

template <class Fields, class Format>
void DescribeFields(const Fields& fields, const Format& format, SelectionFormat& description) {
  ForEach(fields, [&](const auto& field) { description.*field.Described = format.*field.Held; });
}

template <class T>
bool IsOutside(const std::optional<T>& value, T least, T most) {
  return value && !(*value >= least && *value <= most); // so that what is not a number is outside
}

} // namespace

Formatting StandardFormatting(StringView fontName, double fontSize) {
  Formatting standard;
  standard.Character.FontName = fontName;
  standard.Character.FontSize = RoundFontSize(fontSize);
  return standard;
}

SelectionFormat Describe(const Formatting& formatting) {
  SelectionFormat description;
  DescribeFields(CharacterFields, formatting.Character, description);
  DescribeFields(ParagraphFields, formatting.Paragraph, description);
  return description;
}

void Mix(SelectionFormat& description, const CharacterFormat& format) {
  MixFields(CharacterFields, description, format);
}
void Mix(SelectionFormat& description, const ParagraphFormat& format) {
  MixFields(ParagraphFields, description, format);
}

void Apply(const SelectionFormat& changes, CharacterFormat& format) {
  ApplyFields(CharacterFields, changes, format);
  format.FontSize = RoundFontSize(format.FontSize);
  format.CharOffset = RoundOffset(format.CharOffset);
}
void Apply(const SelectionFormat& changes, ParagraphFormat& format) { ApplyFields(ParagraphFields, changes, format); }

bool SetsCharacters(const SelectionFormat& changes) { return SetsAny(CharacterFields, changes); }
bool SetsParagraphs(const SelectionFormat& changes) { return SetsAny(ParagraphFields, changes); }

void CheckRanges(const SelectionFormat& changes) {
  const bool isOutside =
      IsOutside(changes.SelAlignment, 0, 2) || IsOutside(changes.SelColor, 0, 0xFFFFFF) ||
      IsOutside(changes.SelCharOffset, -FarthestTwips, FarthestTwips) ||
      IsOutside(changes.SelIndent, -FarthestTwips, FarthestTwips) ||
      IsOutside(changes.SelHangingIndent, -FarthestTwips, FarthestTwips) ||
      IsOutside(changes.SelRightIndent, -FarthestTwips, FarthestTwips) ||
      IsOutside(changes.SelFontSize, SmallestFontSize, LargestFontSize) ||
      (changes.SelFontName && (changes.SelFontName->empty() || changes.SelFontName->size() > LongestFontName));
  if (isOutside) HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
}

double RoundFontSize(double points) { return std::round(points * 2) / 2; }

std::int32_t RoundOffset(std::int64_t twips) {
  constexpr std::int64_t half = TwipsPerHalfPoint / 2;
  const std::int64_t halfPoints = (twips + (twips < 0 ? -half : half)) / TwipsPerHalfPoint;
  return static_cast<std::int32_t>(halfPoints * TwipsPerHalfPoint);
}

} // namespace portico::richtext
