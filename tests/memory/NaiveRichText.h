#pragma once

#include "platform/SelectionFormat.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace portico::test {

/// What a rich text box does, done place by place. Of the formatting it has a colour, italics and an indent. A line's
/// indent is kept at its line end, that of the last line at the end of the text.
class NaiveRichText {
public:
  struct Slot {
    char16_t Unit = 0; // 0 for a line end
    std::int32_t Color = 0;
    bool Italic = false;
    std::int32_t Indent = 0; // of a line end only

    bool IsEnd() const { return Unit == 0; }
    int Size() const { return IsEnd() ? 2 : 1; }
  };
  using Slots = std::vector<Slot>;

  std::int32_t Start = 0;
  std::int32_t Length = 0;

  std::int32_t TextLength() const { return PositionOf(Last()); }
  String Text() const { return TextBetween(0, Last()); }
  String SelText() const { return TextBetween(From(), To()); }

  void SelStart(std::int32_t position) { Select(PositionOf(IndexOf(position)), 0); }
  void SelLength(std::int32_t length) { Select(Start, std::min(length, TextLength() - Start + 1)); }

  /// The look of what would be inserted.
  Slot Insertion() const {
    const std::size_t from = From();
    Slot look = m_caret ? *m_caret : m_slots[from == To() && from > 0 && !m_slots[from - 1].IsEnd() ? from - 1 : from];
    look.Unit = 0;
    look.Indent = EndOf(from).Indent;
    return look;
  }

  SelectionFormat SelFormat() const {
    const Slot look = Insertion();
    SelectionFormat format{.SelIndent = look.Indent, .SelColor = look.Color, .SelItalic = look.Italic};
    for (std::size_t i = From(); i < To(); ++i) {
      if (m_slots[i].Color != look.Color) format.SelColor.reset();
      if (m_slots[i].Italic != look.Italic) format.SelItalic.reset();
      if (EndOf(i).Indent != look.Indent) format.SelIndent.reset();
    }
    return format;
  }
  void SelFormat(const SelectionFormat& changes) {
    const auto apply = [&](Slot& slot) {
      slot.Color = changes.SelColor.value_or(slot.Color);
      slot.Italic = changes.SelItalic.value_or(slot.Italic);
    };
    const std::size_t from = From();
    if (from == To()) {
      if (changes.SelColor || changes.SelItalic) {
        m_caret = Insertion();
        apply(*m_caret);
      }
    } else {
      std::for_each(At(from), At(To()), apply);
    }
    for (std::size_t i = from; i < std::max(from + 1, To()); ++i) {
      Slot& end = m_slots[EndIndex(i)];
      end.Indent = changes.SelIndent.value_or(end.Indent);
    }
  }

  /// The last slot is the end of what is inserted, which only tells its indent.
  void Replace(Slots text);
  void Load(Slots text) {
    m_slots = std::move(text);
    Select(0, 0);
  }

  std::int32_t Find(StringView text, std::int32_t start, std::int32_t end);
  void Span(StringView set);
  std::int32_t LineOf(std::int32_t position) const;

private:
  std::size_t Last() const { return m_slots.size() - 1; }
  std::size_t From() const { return IndexOf(Start); }
  std::size_t To() const { return IndexOf(Start + Length); }
  Slots::iterator At(std::size_t index) { return m_slots.begin() + static_cast<std::ptrdiff_t>(index); }

  std::size_t IndexOf(std::int32_t position) const {
    std::size_t index = 0;
    for (; index < Last() && position >= m_slots[index].Size(); ++index) position -= m_slots[index].Size();
    return index;
  }
  std::int32_t PositionOf(std::size_t index) const {
    std::int32_t position = 0;
    for (std::size_t i = 0; i < index; ++i) position += m_slots[i].Size();
    return position;
  }
  std::size_t EndIndex(std::size_t index) const {
    while (!m_slots[index].IsEnd()) ++index;
    return index;
  }
  const Slot& EndOf(std::size_t index) const { return m_slots[EndIndex(index)]; }
  String TextBetween(std::size_t from, std::size_t to) const {
    String text;
    for (std::size_t i = from; i < to; ++i) m_slots[i].IsEnd() ? text += u"\r\n" : text += m_slots[i].Unit;
    return text;
  }
  void Select(std::int32_t start, std::int32_t length) {
    Start = start;
    Length = length;
    m_caret.reset();
  }

  Slots m_slots = Slots(1);
  std::optional<Slot> m_caret;
};

} // namespace portico::test
