#pragma once

#include "platform/StandardFont.h"
#include "richtext/RichTextModel.h"

namespace portico::memory {

/// A rich text box without a window.
class RichTextBox final : public richtext::RichTextModel {
public:
  /// The font is that of the standard formatting. Its size is in points.
  explicit RichTextBox(StringView fontName = StandardFontName, double fontSize = StandardFontSize)
      : RichTextModel(fontName, fontSize) {}
  StringView ClassName() const override { return u"RichTextBox"; }

  void SetFocus() override { m_gotFocus(); }
  /// `Change` fires once, behind the whole edit.
  void EditAtOnce(const std::function<void()>& edit) {
    RichTextModel::EditAtOnce(edit, [] {});
  }
  /// Fires at each `SetFocus`.
  Event<>& GotFocus() { return m_gotFocus; }

private:
  Event<> m_gotFocus;
};

} // namespace portico::memory
