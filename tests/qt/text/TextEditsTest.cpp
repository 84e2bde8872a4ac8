// Random edits of program and user: box and document stay the same.

#include "qt/text/TextBench.h"
#include "qt/values/QtText.h"

#include <QApplication>
#include <QTextBlock>
#include <QTextFragment>

#include <random>

namespace portico::test {
namespace {

class TextEditsTest : public testing::TestWithParam<unsigned>, protected TextWindow {
protected:
  int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

  String AnyText() {
    constexpr StringView Pieces[] = {u"a", u"bc", u" ", u"\u20AC", u"\r\n", u"\u00A0", u"\u2029", u"\U0001F600"};
    String text;
    for (int i = Below(6); i > 0; --i) text += Pieces[Below(8)];
    return text;
  }

  void EditByProgram() {
    box.SelStart(Below(box.TextLength() + 2));
    box.SelLength(Below(2) == 0 ? 0 : Below(8));
    switch (Below(7)) {
    case 0:
      return box.SelText(AnyText());
    case 1:
      return box.SelFormat({.SelIndent = 15 * Below(3), .SelBold = Below(2) == 0, .SelColor = 100 * Below(3)});
    case 2: { // as lines are taken
      const std::int32_t end = box.Find(u"\r\n", 0);
      box.SelStart(0);
      if (end >= 0) box.SelLength(end + 2);
      return box.SelRTF(u"");
    }
    case 3: // as lines are added
      box.SelStart(box.TextLength() + 1);
      return box.SelText(AnyText() + u"\r\n");
    case 4:
      return box.Span(u"abc\r\n");
    case 5:
      if (Below(6) == 0) box.Text(AnyText());
      return;
    default:
      return box.SelRTF(box.SelRTF());
    }
  }

  void EditByUser() {
    if (Below(2) == 0) {
      box.Show();
      const int end = View().document()->characterCount();
      SelectInView(Below(end), Below(end));
    }
    switch (Below(10)) {
    case 0:
      return Key(Qt::Key_Backspace);
    case 1:
      return Key(Qt::Key_Delete, Below(2) == 0 ? Qt::NoModifier : Qt::ControlModifier);
    case 2:
    case 3:
      return Key(Qt::Key_Z, Below(3) == 0 ? Qt::ControlModifier | Qt::ShiftModifier : Qt::ControlModifier);
    case 4:
      return Key(Qt::Key_C, Qt::ControlModifier);
    case 5:
      return Key(Qt::Key_X, Qt::ControlModifier);
    case 6:
      return Key(Qt::Key_V, Qt::ControlModifier);
    case 7:
      return View().textCursor().insertText(qt::ToQt(AnyText()));
    default:
      return Type(Below(3) == 0 ? "\n" : "x");
    }
  }

  /// What the model holds is what would be read from the document, looks and all.
  void ExpectSame() {
    box.Show();
    ASSERT_EQ(ShownText(box), TextToShow(box));
    ExpectShown(box);
    ASSERT_EQ(box.TextLength(), static_cast<std::int32_t>(box.Text().size()));
    const QTextDocument& document = *View().document();
    const std::int32_t start = box.SelStart();
    const std::int32_t length = box.SelLength();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
      for (auto at = block.begin(); !at.atEnd(); ++at) {
        const QTextFragment fragment = at.fragment();
        box.SelStart(fragment.position() + block.blockNumber());
        box.SelLength(fragment.length());
        const SelectionFormat look = box.SelFormat();
        ASSERT_EQ(look.SelBold, fragment.charFormat().fontWeight() == QFont::Bold);
        ASSERT_EQ(look.SelColor, fragment.charFormat().foreground().color().red());
        ASSERT_EQ(look.SelIndent, static_cast<std::int32_t>(block.blockFormat().leftMargin() * 15));
      }
    }
    box.SelStart(start);
    box.SelLength(length);
  }

private:
  std::mt19937 m_random{GetParam()};
};

TEST_P(TextEditsTest, BoxAndDocumentStayTheSame) {
  for (int i = 0; i < 300; ++i) {
    for (int edits = Below(5); edits > 0; --edits) EditByProgram();
    if (Below(2) == 0) box.Show();
    for (int edits = Below(4); edits > 0; --edits) EditByUser();
    ASSERT_NO_FATAL_FAILURE(ExpectSame()) << "step " << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, TextEditsTest, testing::Range(1U, 13U));

} // namespace
} // namespace portico::test
