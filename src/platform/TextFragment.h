#pragma once

#include "framework/text/text.h"

namespace portico {

/// What an encoder makes of a text: a paragraph of RTF that says nothing of its look. It is written only for who asks.
struct TextFragment {
  /// What the RTF begins with. It changes nothing in how the rest is read.
  static constexpr StringView Head = u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 ";
  static constexpr StringView ParagraphMark = u"\\par ";

  String Text;    ///< as it stands: what is RTF's syntax in it has the effect that it has there
  StringView End; ///< a constant: the brace that ends it all, and what may stand behind that

  /// What stands behind the head.
  String Content() const { return Joined({}); }
  String Rtf() const { return Joined(Head); }
  /// The length of `Rtf`, without making it.
  std::size_t Length() const { return Head.size() + Text.size() + ParagraphMark.size() + End.size(); }

private:
  String Joined(StringView head) const {
    String joined;
    joined.reserve(Length());
    return joined.append(head).append(Text).append(ParagraphMark).append(End);
  }
};

} // namespace portico
