// Marks at the margin.

#include "contract/RichTextBench.h"

#include "platform/ILineMarks.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using ::testing::ElementsAre;

class LineMarksContract : public RichTextContract {
protected:
  LineMarksContract() { Load(u"one\r\ntwo\r\n\r\nfour\r\n"); }
  std::vector<std::int32_t> Marked() const { return Marks.MarkedLines(); }
  void Put(std::int32_t start, std::int32_t length, StringView text) {
    Select(start, length);
    box->SelText(text);
  }

  ILineMarks& Marks = dynamic_cast<ILineMarks&>(*box);
};

INSTANTIATE_TEST_SUITE_P(AllBoxes, LineMarksContract, testing::ValuesIn(AllRichTextBenches()), RichTextBenchName);

TEST_P(LineMarksContract, MarkTheLineThatAPositionIsIn) {
  EXPECT_THAT(Marked(), ElementsAre());
  Marks.MarkLine(13);
  Marks.MarkLine(5);
  Marks.MarkLine(9); // between CR and LF
  Marks.MarkLine(12);
  EXPECT_THAT(Marked(), ElementsAre(1, 3));
  Marks.MarkLine(-1);
  Marks.MarkLine(1000);
  EXPECT_THAT(Marked(), ElementsAre(0, 1, 3, 4));
}

TEST_P(LineMarksContract, AllCanBeTakenAway) {
  Marks.MarkLine(0);
  Marks.MarkLine(5);
  Marks.ClearMarks();
  EXPECT_THAT(Marked(), ElementsAre());
}

TEST_P(LineMarksContract, AreNoPartOfTextLooksAndCopies) {
  Select(5, 8);
  const String rtf = box->SelRTF();
  const String whole = box->TextRTF();
  Marks.MarkLine(5);
  EXPECT_EQ(box->SelStart(), 5);
  EXPECT_EQ(box->SelLength(), 8);
  EXPECT_EQ(box->SelRTF(), rtf);
  EXPECT_EQ(box->TextRTF(), whole);
  EXPECT_EQ(box->Text(), u"one\r\ntwo\r\n\r\nfour\r\n");
  EXPECT_EQ(changes, 0);
}

class SomeNotes final : public ILineNotes {
public:
  StringView ClassName() const override { return u"SomeNotes"; }
  std::vector<String> Widest() const override { return {u"note"}; }
  LineNote NoteOf(std::int32_t /*line*/) const override {
    return {.Columns = {u"note"}, .Begins = true, .Told = u"told"};
  }
};

TEST_P(LineMarksContract, NotesAreNoPartOfTextLooksAndCopies) {
  Select(5, 8);
  const String rtf = box->SelRTF();
  const String whole = box->TextRTF();
  EXPECT_FALSE(Marks.Notes());
  const Ref<ILineNotes> notes = New<SomeNotes>();
  Marks.ShowNotes(notes);
  EXPECT_TRUE(IsSameObject(Marks.Notes(), notes));
  EXPECT_EQ(box->SelStart(), 5);
  EXPECT_EQ(box->SelLength(), 8);
  EXPECT_EQ(box->SelRTF(), rtf);
  EXPECT_EQ(box->TextRTF(), whole);
  EXPECT_EQ(box->Text(), u"one\r\ntwo\r\n\r\nfour\r\n");
  EXPECT_EQ(box->Find(u"note", 0), -1);
  EXPECT_THAT(Marked(), ElementsAre());
  box->Text(u"other");
  EXPECT_TRUE(Marks.Notes());
  Marks.ShowNotes({});
  EXPECT_FALSE(Marks.Notes());
  EXPECT_EQ(changes, 1) << "that of the text";
}

TEST_P(LineMarksContract, StayWhereTextComesBehindThem) {
  Marks.MarkLine(5);
  Put(box->TextLength(), 0, u"five\r\nsix\r\n");
  EXPECT_THAT(Marked(), ElementsAre(1));
  Marks.MarkLine(box->TextLength() - 2);
  EXPECT_THAT(Marked(), ElementsAre(1, 5));
}

TEST_P(LineMarksContract, MoveWithTheirLines) {
  Marks.MarkLine(5);
  Marks.MarkLine(12);
  Put(0, 0, u"zero\r\n");
  EXPECT_THAT(Marked(), ElementsAre(2, 4));
  Put(11, 0, u"1\r\n2\r\n"); // in front of "two"
  EXPECT_THAT(Marked(), ElementsAre(4, 6));
  Put(18, 0, u"\r\n"); // within "two", whose start keeps it
  EXPECT_EQ(box->Text(), u"zero\r\none\r\n1\r\n2\r\nt\r\nwo\r\n\r\nfour\r\n");
  EXPECT_THAT(Marked(), ElementsAre(4, 7));
}

TEST_P(LineMarksContract, GoWithTheirLines) {
  Marks.MarkLine(0);
  Marks.MarkLine(5);
  Marks.MarkLine(12);
  Put(5, 5, {}); // "two" and its end
  EXPECT_EQ(box->Text(), u"one\r\n\r\nfour\r\n");
  EXPECT_THAT(Marked(), ElementsAre(0, 2));
  Put(1, 6, {}); // what is left of "one" takes "four" in
  EXPECT_EQ(box->Text(), u"ofour\r\n");
  EXPECT_THAT(Marked(), ElementsAre(0));
}

TEST_P(LineMarksContract, ANewLookTakesNoneAway) {
  Marks.MarkLine(0);
  Marks.MarkLine(5);
  Format(0, 12, OtherFormat());
  EXPECT_THAT(Marked(), ElementsAre(0, 1));
}

TEST_P(LineMarksContract, ATextThatIsReplacedOrEmptiedHasNone) {
  Marks.MarkLine(0);
  box->Text(u"other");
  EXPECT_THAT(Marked(), ElementsAre());
  Marks.MarkLine(0);
  Put(0, 5, {});
  EXPECT_THAT(Marked(), ElementsAre());
  Marks.MarkLine(0);
  box->Text({});
  EXPECT_THAT(Marked(), ElementsAre());
}

TEST_P(LineMarksContract, GoingToALineSelectsItWithoutItsEnd) {
  Marks.GoToLine(3);
  EXPECT_EQ(box->SelStart(), 12);
  EXPECT_EQ(box->SelText(), u"four");
  Marks.GoToLine(2);
  EXPECT_EQ(box->SelStart(), 10);
  EXPECT_EQ(box->SelLength(), 0);
  Marks.GoToLine(-5);
  EXPECT_EQ(box->SelText(), u"one");
  Marks.GoToLine(100);
  EXPECT_EQ(box->SelStart(), 18);
  EXPECT_EQ(changes, 0);
}

} // namespace
} // namespace portico::test
