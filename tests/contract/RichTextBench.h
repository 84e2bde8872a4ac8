#pragma once

#include "platform/IRichTextBox.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <ostream>
#include <vector>

namespace portico::test {

/// A kind of box that the suites run with: the name is that of its platform. The standard formatting is that of
/// `StandardFormat`.
struct RichTextBenchKind {
  const char* name;
  Ref<IRichTextBox> (*make)();
};

/// To be defined by each program that runs the suites.
std::vector<RichTextBenchKind> AllRichTextBenches();

inline void PrintTo(const RichTextBenchKind& kind, std::ostream* stream) { *stream << kind.name; }

inline std::string RichTextBenchName(const testing::TestParamInfo<RichTextBenchKind>& info) { return info.param.name; }

inline SelectionFormat StandardFormat() {
  return {.SelAlignment = 0,
          .SelBullet = false,
          .SelHangingIndent = 0,
          .SelIndent = 0,
          .SelRightIndent = 0,
          .SelBold = false,
          .SelCharOffset = 0,
          .SelColor = 0,
          .SelFontName = u"Sans",
          .SelFontSize = 10,
          .SelItalic = false,
          .SelStrikeThru = false,
          .SelUnderline = false};
}

/// Differs from the standard in every value.
inline SelectionFormat OtherFormat() {
  return {.SelAlignment = 2,
          .SelBullet = true,
          .SelHangingIndent = 300,
          .SelIndent = 150,
          .SelRightIndent = 75,
          .SelBold = true,
          .SelCharOffset = -60,
          .SelColor = 0x123456,
          .SelFontName = u"Mono",
          .SelFontSize = 12.5,
          .SelItalic = true,
          .SelStrikeThru = true,
          .SelUnderline = true};
}

/// Runs each test with a box of its own.
class RichTextContract : public testing::TestWithParam<RichTextBenchKind> {
protected:
  RichTextContract() {
    box->Change().Connect([this] { ++changes; });
  }

  void Select(std::int32_t start, std::int32_t length) {
    box->SelStart(start);
    box->SelLength(length);
  }
  /// The text stands in the box in the standard formatting; the caret is at 0.
  void Load(StringView text) {
    box->Text(text);
    changes = 0;
  }
  void Format(std::int32_t start, std::int32_t length, const SelectionFormat& format) {
    Select(start, length);
    box->SelFormat(format);
  }
  SelectionFormat FormatOf(std::int32_t start, std::int32_t length) {
    Select(start, length);
    return box->SelFormat();
  }
  String TextOf(std::int32_t start, std::int32_t length) {
    Select(start, length);
    return box->SelText();
  }
  String FragmentOf(std::int32_t start, std::int32_t length) {
    Select(start, length);
    return box->SelRTF();
  }
  /// A new box that holds the fragment.
  Ref<IRichTextBox> Loaded(StringView fragment) {
    Ref<IRichTextBox> other = GetParam().make();
    other->TextRTF(fragment);
    return other;
  }

  Ref<IRichTextBox> box = GetParam().make();
  int changes = 0;
};

} // namespace portico::test
