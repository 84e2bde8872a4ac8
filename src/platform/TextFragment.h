#pragma once

#include "framework/text/text.h"

namespace portico {

/// What an encoder makes of a text: a fragment that says nothing of its look. Its RTF is written only for who asks.
struct TextFragment {
  /// What the RTF begins with. It changes nothing in how the content is read.
  static constexpr StringView Head = u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 ";

  String Content; ///< in RTF's syntax, with the brace that ends it all

  String Rtf() const { return String(Head).append(Content); }
  /// The length of `Rtf`, without making it.
  std::size_t Length() const { return Head.size() + Content.size(); }
};

} // namespace portico
