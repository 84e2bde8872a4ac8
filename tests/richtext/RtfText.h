#pragma once

#include "richtext/RtfReader.h"

#include <gtest/gtest.h>

namespace portico::richtext::test {

inline Formatting Base() {
  Formatting base = StandardFormatting(u"Base", 9);
  base.Character.Color = 0x010203;
  return base;
}

/// A fragment of the body given, read onto `Base`.
inline FormattedText Read(StringView body) { return ReadRtf(u"{\\rtf1 " + String(body) + u"}", Base()); }

inline String Joined(const FormattedText& text) {
  String joined;
  for (const FormattedLine& line : text) joined += (&line == &text.front() ? u"" : u"\r\n") + line.Text;
  return joined;
}

inline String TextOf(StringView body) { return Joined(Read(body)); }

/// The look of the last character, or of the end where there is none.
inline CharacterFormat LastOf(StringView body) {
  const FormattedText text = Read(body);
  const std::size_t length = text.back().Text.size();
  return text.back().Runs.At(length == 0 ? 0 : length - 1);
}

inline ParagraphFormat ParagraphOf(StringView body) { return Read(body).back().Paragraph; }

} // namespace portico::richtext::test
