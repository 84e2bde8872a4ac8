#pragma once

#include "platform/SelectionFormat.h"

namespace portico::richtext {

/// The look of one character or line end, complete. Units and ranges are those of `SelectionFormat`.
struct CharacterFormat {
  String FontName;
  double FontSize = 0;
  std::int32_t Color = 0;
  std::int32_t CharOffset = 0;
  bool Bold = false;
  bool Italic = false;
  bool StrikeThru = false;
  bool Underline = false;

  bool operator==(const CharacterFormat&) const = default;
};

/// The look of one paragraph, complete.
struct ParagraphFormat {
  std::int32_t Alignment = 0;
  std::int32_t HangingIndent = 0;
  std::int32_t Indent = 0;
  std::int32_t RightIndent = 0;
  bool Bullet = false;

  bool operator==(const ParagraphFormat&) const = default;
};

/// All thirteen values.
struct Formatting {
  CharacterFormat Character;
  ParagraphFormat Paragraph;

  bool operator==(const Formatting&) const = default;
};

/// Black text without indents.
Formatting StandardFormatting(StringView fontName, double fontSize);

/// Every value set.
SelectionFormat Describe(const Formatting& formatting);

/// Takes back the values in which a further part of a selection differs.
void Mix(SelectionFormat& description, const CharacterFormat& format);
void Mix(SelectionFormat& description, const ParagraphFormat& format);

/// Applies the values of the kind that are set, font size and offset rounded to half a point.
void Apply(const SelectionFormat& changes, CharacterFormat& format);
void Apply(const SelectionFormat& changes, ParagraphFormat& format);

/// Whether any value of the kind is set.
bool SetsCharacters(const SelectionFormat& changes);
bool SetsParagraphs(const SelectionFormat& changes);

/// A value outside its range raises `BadPropertyValue`.
void CheckRanges(const SelectionFormat& changes);

/// The nearest half of a point, which is what a fragment can carry.
double RoundFontSize(double points);
std::int32_t RoundOffset(std::int64_t twips);

} // namespace portico::richtext
