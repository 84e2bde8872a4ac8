#include "richtext/RtfWords.h"

#include <algorithm>
#include <array>

namespace portico::richtext {
namespace {

struct Row {
  StringView Word;
  RtfAction Act;
};

template <bool CharacterFormat::*flag>
void Turn(RtfDocument& document, RtfNumber number) {
  document.Change().Format.Character.*flag = number.IsOn();
}

template <std::int32_t alignment>
void Align(RtfDocument& document, RtfNumber) {
  document.Change().Format.Paragraph.Alignment = alignment;
}

template <char16_t unit>
void Add(RtfDocument& document, RtfNumber) {
  document.AddUnit(unit);
}

template <RtfDestination destination>
void Enter(RtfDocument& document, RtfNumber) {
  document.Change().Destination = destination;
}

template <int shift>
void ColorPart(RtfDocument& document, RtfNumber number) {
  document.SetColorPart(shift, number.Or(0));
}

void EndLine(RtfDocument& document, RtfNumber) { document.EndLine(); }

std::int32_t Twips(std::int64_t number) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(number, -FarthestTwips, FarthestTwips));
}

template <int sign>
void Raise(RtfDocument& document, RtfNumber number) {
  const std::int64_t halfPoints = number.Or(6);
  document.Change().Format.Character.CharOffset = Twips(sign * halfPoints * TwipsPerHalfPoint);
}

void FontSize(RtfDocument& document, RtfNumber number) {
  const double points = number.Or(24) / 2.0;
  if (points > 0) document.Change().Format.Character.FontSize = std::min(points, LargestFontSize);
}

// The source counts the left edge of the further lines, and the first line's from there.
void LeftIndent(RtfDocument& document, RtfNumber number) {
  ParagraphFormat& paragraph = document.Change().Format.Paragraph;
  paragraph.Indent = Twips(std::int64_t{number.Or(0)} - paragraph.HangingIndent);
}

void FirstIndent(RtfDocument& document, RtfNumber number) {
  ParagraphFormat& paragraph = document.Change().Format.Paragraph;
  const std::int64_t left = std::int64_t{paragraph.Indent} + paragraph.HangingIndent;
  paragraph.HangingIndent = Twips(-std::int64_t{number.Or(0)});
  paragraph.Indent = Twips(left - paragraph.HangingIndent);
}

void RightIndent(RtfDocument& document, RtfNumber number) {
  document.Change().Format.Paragraph.RightIndent = Twips(number.Or(0));
}

void Plain(RtfDocument& document, RtfNumber) {
  CharacterFormat& format = document.Change().Format.Character;
  const CharacterFormat& base = document.Base().Character;
  format = {.FontName = base.FontName, .FontSize = base.FontSize};
}

void PlainParagraph(RtfDocument& document, RtfNumber) { document.Change().Format.Paragraph = {}; }

void BulletLevel(RtfDocument& document, RtfNumber) {
  if (document.State().Destination == RtfDestination::Bullet) document.NoteBullet();
}

constexpr auto Ignore = Enter<RtfDestination::Nowhere>;

// In the order of their units, for the search.
constexpr auto Rows = std::to_array<Row>({
    {u"b", Turn<&CharacterFormat::Bold>},
    {u"blue", ColorPart<16>},
    {u"bullet", Add<u'\u2022'>},
    {u"cell", Add<u'\t'>},
    {u"cf", [](RtfDocument& document, RtfNumber number) { document.SelectColor(number.Or(0)); }},
    {u"colortbl", Enter<RtfDestination::ColorTable>},
    {u"dn", Raise<-1>},
    {u"emdash", Add<u'\u2014'>},
    {u"endash", Add<u'\u2013'>},
    {u"f", [](RtfDocument& document, RtfNumber number) { document.SelectFont(number.Or(0)); }},
    {u"fi", FirstIndent},
    {u"fonttbl", Enter<RtfDestination::FontTable>},
    {u"footer", Ignore},
    {u"footerf", Ignore},
    {u"footerl", Ignore},
    {u"footerr", Ignore},
    {u"footnote", Ignore},
    {u"fs", FontSize},
    {u"green", ColorPart<8>},
    {u"header", Ignore},
    {u"headerf", Ignore},
    {u"headerl", Ignore},
    {u"headerr", Ignore},
    {u"i", Turn<&CharacterFormat::Italic>},
    {u"info", Ignore},
    {u"ldblquote", Add<u'\u201C'>},
    {u"li", LeftIndent},
    {u"line", EndLine},
    {u"lquote", Add<u'\u2018'>},
    {u"object", Ignore},
    {u"par", EndLine},
    {u"pard", PlainParagraph},
    {u"pict", Ignore},
    {u"plain", Plain},
    {u"pn", Enter<RtfDestination::Bullet>},
    {u"pnlvlblt", BulletLevel},
    {u"pntext", Ignore},
    {u"pntxtb", Ignore},
    {u"qc", Align<2>},
    {u"ql", Align<0>},
    {u"qr", Align<1>},
    {u"rdblquote", Add<u'\u201D'>},
    {u"red", ColorPart<0>},
    {u"ri", RightIndent},
    {u"row", EndLine},
    {u"rquote", Add<u'\u2019'>},
    {u"sect", EndLine},
    {u"strike", Turn<&CharacterFormat::StrikeThru>},
    {u"stylesheet", Ignore},
    {u"tab", Add<u'\t'>},
    {u"uc", [](RtfDocument& document, RtfNumber number) { document.Change().UnicodeSkip = std::max(number.Or(1), 0); }},
    {u"ul", Turn<&CharacterFormat::Underline>},
    {u"ulnone", [](RtfDocument& document, RtfNumber) { document.Change().Format.Character.Underline = false; }},
    {u"up", Raise<1>},
});

constexpr bool IsBefore(const Row& a, const Row& b) { return a.Word < b.Word; }
static_assert(std::is_sorted(Rows.begin(), Rows.end(), IsBefore));

} // namespace

RtfAction FindRtfWord(StringView word) {
  const auto* found = std::lower_bound(Rows.begin(), Rows.end(), Row{word, nullptr}, IsBefore);
  return found != Rows.end() && found->Word == word ? found->Act : nullptr;
}

} // namespace portico::richtext
