// Copying, cutting, pasting and dragging.

#include "qt/text/TextClipboard.h"
#include "qt/text/TextBench.h"
#include "qt/values/QtText.h"
#include "richtext/RtfReader.h"
#include "richtext/RtfWriter.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>

namespace portico::test {
namespace {

class TextClipboardTest : public testing::Test, protected TextWindow {
protected:
  void Put(StringView text) {
    box.Text(text);
    Settle();
    changes = 0;
  }
  void Copy() { Key(Qt::Key_C, Qt::ControlModifier); }
  void Paste() { Key(Qt::Key_V, Qt::ControlModifier); }
  static const QMimeData& Clipboard() { return *QApplication::clipboard()->mimeData(); }
  void PasteText(const QString& text) {
    QApplication::clipboard()->setText(text);
    Paste();
  }
  /// As the toolkit would call it, at the end of a drag that began elsewhere.
  bool Drop(const QMimeData& data, int position, Qt::DropAction action = Qt::CopyAction) {
    QTextCursor cursor = View().textCursor();
    cursor.setPosition(position);
    const QPointF place = View().cursorRect(cursor).center();
    QDragEnterEvent enter(place.toPoint(), action, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(View().viewport(), &enter);
    QDropEvent event(place, action, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(View().viewport(), &event);
    return event.isAccepted();
  }
  SelectionFormat FormatOf(std::int32_t start, std::int32_t length) {
    box.SelStart(start);
    box.SelLength(length);
    return box.SelFormat();
  }
};

TEST_F(TextClipboardTest, ACopyIsPlainTextAndAFragment) {
  Put(u"ab\r\ncd");
  FormatOf(0, 1);
  box.SelFormat({.SelBold = true});
  SelectInView(0, 4);
  const String fragment = box.SelRTF();
  Copy();
  EXPECT_EQ(Clipboard().text(), "ab\nc");
  EXPECT_EQ(Clipboard().data("text/rtf").toStdString(), ToUtf8(fragment));
  EXPECT_EQ(box.Text(), u"ab\r\ncd");
}

TEST_F(TextClipboardTest, NoBreakSpacesStayWhatTheyAre) {
  Put(u"a\u00A0b");
  Key(Qt::Key_A, Qt::ControlModifier);
  Copy();
  EXPECT_EQ(Clipboard().text(), QString("a\u00A0b"));
  Paste();
  EXPECT_EQ(box.Text(), u"a\u00A0b");
  PasteText(QString("\u00A0"));
  EXPECT_EQ(box.Text(), u"a\u00A0b\u00A0");
}

TEST_F(TextClipboardTest, ACutTakesAway) {
  Put(u"ab\r\ncd");
  SelectInView(1, 4);
  Key(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(Clipboard().text(), "b\nc");
  EXPECT_EQ(box.Text(), u"ad");
  EXPECT_EQ(changes, 1);
}

TEST_F(TextClipboardTest, APastedConversationKeepsMarkersAndIndent) {
  Put(u">:MEAS?\r\n<1.5\r\n");
  FormatOf(0, 1);
  box.SelFormat({.SelColor = 0xFFFFFF});
  FormatOf(9, 1);
  box.SelFormat({.SelColor = 0xFFFFFF});
  FormatOf(9, 4);
  box.SelFormat({.SelIndent = 150, .SelItalic = true});
  Key(Qt::Key_A, Qt::ControlModifier);
  Copy();
  QWidget parent;
  qt::RichTextBox other({.Kind = ControlKind::RichTextBox, .Name = u"txtOther"}, parent, u"Sans", 10);
  other.Widget()->paste();
  EXPECT_EQ(other.Text(), u">:MEAS?\r\n<1.5\r\n");
  EXPECT_EQ(other.TextRTF(), box.TextRTF());
  ExpectShown(other);
}

TEST_F(TextClipboardTest, APartOfALineKeepsItsIndent) {
  Put(u"abcd");
  box.SelFormat({.SelIndent = 150});
  SelectInView(1, 3);
  Copy();
  QWidget parent;
  qt::RichTextBox other({.Kind = ControlKind::RichTextBox, .Name = u"txtOther"}, parent, u"Sans", 10);
  other.Widget()->paste();
  EXPECT_EQ(other.Text(), u"bc");
  EXPECT_EQ(other.SelFormat().SelIndent, 150);
}

TEST_F(TextClipboardTest, TheFragmentIsTakenBeforeThePlainText) {
  auto* data = new QMimeData;
  data->setText("plain");
  data->setData("text/rtf", "{\\rtf1 {\\b fat}}");
  QApplication::clipboard()->setMimeData(data);
  Paste();
  EXPECT_EQ(box.Text(), u"fat");
  EXPECT_EQ(FormatOf(0, 3).SelBold, true);
}

TEST_F(TextClipboardTest, AFragmentOfTheOtherNameIsTakenToo) {
  auto* data = new QMimeData;
  data->setText("plain");
  data->setData("application/rtf", QByteArray("{\\rtf1 f\xE4t}\0junk", 16));
  QApplication::clipboard()->setMimeData(data);
  Paste();
  EXPECT_EQ(box.Text(), u"f\u00E4t");
}

TEST_F(TextClipboardTest, WhatIsNoFragmentIsLeft) {
  auto* data = new QMimeData;
  data->setText("plain");
  data->setData("text/rtf", "fat");
  QApplication::clipboard()->setMimeData(data);
  Paste();
  EXPECT_EQ(box.Text(), u"plain");
}

TEST_F(TextClipboardTest, PlainTextTakesTheLookOfWhatItReplaces) {
  Put(u"abcd");
  FormatOf(1, 2);
  box.SelFormat({.SelItalic = true});
  PasteText("x");
  EXPECT_EQ(box.Text(), u"axd");
  EXPECT_EQ(FormatOf(1, 1).SelItalic, true);
}

TEST_F(TextClipboardTest, EachKindOfLineEndMakesALine) {
  PasteText(QString("a\r\nb\nc\u2028d\u2029e"));
  EXPECT_EQ(box.Text(), u"a\r\nb\r\nc\r\nd\r\ne");
  EXPECT_EQ(changes, 1);
  ExpectShown(box);
}

TEST_F(TextClipboardTest, APasteIsOneStepOfUndo) {
  Put(u"abcd");
  Key(Qt::Key_End);
  Type("e");
  SelectInView(1, 3);
  PasteText("x\ny");
  EXPECT_EQ(box.Text(), u"ax\r\nyde");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box.Text(), u"abcde");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box.Text(), u"abcd");
  Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(box.Text(), u"ax\r\nyde");
}

TEST_F(TextClipboardTest, ATextThatIsDroppedIsCopied) {
  Put(u"ab");
  QMimeData data;
  data.setText("x\ny");
  EXPECT_TRUE(Drop(data, 1));
  EXPECT_EQ(box.Text(), u"ax\r\nyb");
  EXPECT_EQ(box.SelStart(), 5);
  EXPECT_EQ(changes, 1);
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box.Text(), u"ab");
}

TEST_F(TextClipboardTest, NothingIsDroppedOnALockedBox) {
  Put(u"ab");
  box.Locked(true);
  QMimeData data;
  data.setText("x");
  Drop(data, 1);
  EXPECT_EQ(box.Text(), u"ab");
}

TEST_F(TextClipboardTest, WhatIsNoTextIsNotDropped) {
  Put(u"ab");
  QMimeData data;
  data.setData("image/png", "x");
  EXPECT_FALSE(Drop(data, 1));
  EXPECT_EQ(box.Text(), u"ab");
}

TEST_F(TextClipboardTest, NoTextIsPastedFromAnEmptyClipboard) {
  Put(u"ab");
  Paste();
  EXPECT_EQ(box.Text(), u"ab");
  EXPECT_EQ(changes, 0);
}

} // namespace
} // namespace portico::test
