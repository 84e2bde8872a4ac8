// The line under what cannot be sent, which is drawn and nothing more.

#include "qt/text/TextBench.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMimeData>

#include <map>

namespace portico::test {
namespace {

constexpr StringView Sendable = u"*IDN?\r\nVOLT 5\r\n";
constexpr StringView Lacking = u"*IDN?\r\nR 5 k\u03A9\r\n";

class UnsendableUnderlineTest : public testing::Test, protected TextWindow {
protected:
  UnsendableUnderlineTest() {
    window.show();
    QApplication::processEvents();
  }

  void Put(StringView text) {
    box.Text(text);
    Settle();
  }
  QImage Picture() { return View().viewport()->grab().toImage(); }
  /// The part of the picture that differs with the line and without.
  QRect Drawn() {
    box.UnderlinesUnsendable(false);
    const QImage plain = Picture();
    box.UnderlinesUnsendable(true);
    const QImage underlined = Picture();
    QRect changed;
    for (int y = 0; y < plain.height(); ++y) {
      for (int x = 0; x < plain.width(); ++x) {
        if (plain.pixel(x, y) != underlined.pixel(x, y)) changed |= QRect(x, y, 1, 1);
      }
    }
    return changed;
  }
  /// What Ctrl+C brings, format by format.
  std::map<QString, QByteArray> Copied() {
    QApplication::clipboard()->clear();
    Key(Qt::Key_C, Qt::ControlModifier);
    const QMimeData& data = *QApplication::clipboard()->mimeData();
    std::map<QString, QByteArray> formats;
    for (const QString& format : data.formats()) formats[format] = data.data(format);
    return formats;
  }
  /// Where a character of the document is painted.
  QRect PlaceOf(int position) {
    QTextCursor cursor(View().document());
    cursor.setPosition(position);
    QRect place = View().cursorRect(cursor);
    cursor.setPosition(position + 1);
    return place | View().cursorRect(cursor);
  }
};

TEST_F(UnsendableUnderlineTest, NothingIsDrawnUnderWhatCanBeSent) {
  Put(Sendable);
  EXPECT_TRUE(Drawn().isEmpty());
}

TEST_F(UnsendableUnderlineTest, ALineIsDrawnUnderTheCharacterAndNowhereElse) {
  Put(Lacking);
  const QRect drawn = Drawn();
  ASSERT_FALSE(drawn.isEmpty());
  const QRect character = PlaceOf(6 + 5); // behind the first line and its end
  EXPECT_TRUE(character.adjusted(-2, 0, 2, 2).contains(drawn));
  EXPECT_GT(drawn.top(), character.center().y());
  EXPECT_GE(drawn.width(), 3);
}

TEST_F(UnsendableUnderlineTest, ItIsOffUnlessTheProgramWantsIt) {
  Put(Lacking);
  const QImage before = Picture();
  box.UnderlinesUnsendable(false);
  EXPECT_EQ(Picture(), before);
}

TEST_F(UnsendableUnderlineTest, ItGoesAlongWithTheTextThatIsScrolled) {
  String text;
  for (int i = 0; i < 200; ++i) text += u"VOLT 5\r\n";
  Put(text + u"5 k\u03A9");
  EXPECT_TRUE(Drawn().isEmpty()) << "out of sight";
  box.SelStart(box.TextLength());
  Settle();
  EXPECT_FALSE(Drawn().isEmpty());
}

TEST_F(UnsendableUnderlineTest, TextFormatsAndWhatIsCopiedAreTheSameWithIt) {
  Put(Lacking);
  const String text = box.Text();
  const String rtf = box.TextRTF();
  box.SelStart(0);
  box.SelLength(box.TextLength());
  const String selected = box.SelRTF();
  const std::map<QString, QByteArray> copied = Copied();
  ASSERT_FALSE(copied.empty());
  box.UnderlinesUnsendable(true);
  Picture();
  EXPECT_EQ(box.Text(), text);
  EXPECT_EQ(box.TextRTF(), rtf);
  EXPECT_EQ(box.SelRTF(), selected);
  EXPECT_EQ(box.SelText(), Lacking);
  EXPECT_FALSE(box.SelFormat().SelUnderline.value_or(true));
  ExpectShown(box);
  EXPECT_EQ(Copied(), copied);
}

} // namespace
} // namespace portico::test
