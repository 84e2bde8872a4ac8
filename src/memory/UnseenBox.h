#pragma once

#include "platform/IRichTextBox.h"

namespace portico::memory {

/// A rich text box that nobody looks at: what is written there is forgotten at once. So it is empty whatever is done to
/// it, and its text never changes.
class UnseenBox final : public IRichTextBox {
public:
  StringView ClassName() const override { return u"UnseenBox"; }

  std::int32_t SelStart() const override { return 0; }
  void SelStart(std::int32_t /*position*/) override {}
  std::int32_t SelLength() const override { return 0; }
  void SelLength(std::int32_t /*length*/) override {}
  String SelText() const override { return {}; }
  std::int32_t SelTextLength() const override { return 0; }
  void SelText(StringView /*text*/) override {}
  String SelRTF() const override { return u"{\\rtf1}"; }
  void SelRTF(StringView /*fragment*/) override {}
  void SelFragment(const TextFragment& /*fragment*/) override {}
  SelectionFormat SelFormat() const override { return {}; }
  void SelFormat(const SelectionFormat& /*changes*/) override {}

  String Text() const override { return {}; }
  void Text(StringView /*text*/) override {}
  std::int32_t TextLength() const override { return 0; }
  String TextRTF() const override { return SelRTF(); }
  void TextRTF(StringView /*text*/) override {}
  std::int32_t Find(StringView /*text*/, std::int32_t /*Start*/, std::int32_t /*End*/ = -1) override { return -1; }
  void Span(StringView /*CharacterSet*/) override {}
  std::int32_t GetLineFromChar(std::int32_t /*position*/) const override { return 0; }
  void SetFocus() override {}
  Event<>& Change() override { return m_change; }

private:
  Event<> m_change;
};

} // namespace portico::memory
