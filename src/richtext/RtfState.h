#pragma once

#include "richtext/FormattedText.h"

#include <map>
#include <optional>
#include <vector>

namespace portico::richtext {

/// Where a reader of a fragment puts what it reads.
enum class RtfDestination : std::uint8_t { Text, FontTable, ColorTable, Bullet, Nowhere };

/// What a group restores at its end.
struct RtfState {
  Formatting Format;
  RtfDestination Destination = RtfDestination::Text;
  std::int32_t UnicodeSkip = 1; ///< characters behind a \u that stand for it in older readers
};

/// The number behind a control word.
class RtfNumber {
public:
  RtfNumber() = default;
  explicit RtfNumber(std::int32_t number) : m_number(number) {}

  std::int32_t Or(std::int32_t otherwise) const { return m_number.value_or(otherwise); }
  /// A switch is on unless it has the number 0.
  bool IsOn() const { return Or(1) != 0; }

private:
  std::optional<std::int32_t> m_number;
};

/// A fragment as far as it has been read: its states, tables and text.
class RtfDocument {
public:
  explicit RtfDocument(const Formatting& base);

  std::size_t Depth() const { return m_depth; }
  void OpenGroup() { ++m_depth; }
  void CloseGroup();

  const RtfState& State() const { return m_state; }
  /// The state, to be changed until the end of the group.
  RtfState& Change();
  const Formatting& Base() const { return m_base; }

  /// Units as they stand in the source: syntax in a table, text elsewhere.
  void AddRaw(StringView units);
  /// A unit that was written in another form, so never syntax. CR and LF end the line.
  void AddUnit(char16_t unit);
  void EndLine();
  FormattedText Finish();

  void SelectFont(std::int32_t number);
  /// The paragraph around the group that is being read has a bullet.
  void NoteBullet() { m_bullet = true; }
  void SetColorPart(int shift, std::int32_t value);
  void SelectColor(std::int32_t number);

private:
  /// States of the groups that have changed them only, so that bare nesting costs nothing.
  struct Saved {
    std::size_t Depth;
    RtfState State;
  };

  void AddToFontName(char16_t unit);
  void AddFontName(StringView units);
  void AddColors(StringView units);

  Formatting m_base;
  RtfState m_state;
  std::vector<Saved> m_saved;
  std::size_t m_depth = 0;

  FormattedText m_text;
  FormattedLine m_line;

  std::map<std::int32_t, String> m_fonts;
  std::int32_t m_font = 0; // whose name is being read
  String m_fontName;
  std::vector<std::int32_t> m_colors;
  std::int32_t m_color = 0;
  bool m_bullet = false;
};

} // namespace portico::richtext
