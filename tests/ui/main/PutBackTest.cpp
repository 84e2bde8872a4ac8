#include "support/Journal.h"
#include "ui/main/MainWindowFixture.h"

namespace portico::test {
namespace {

/// The window on an open instrument that answers nothing by itself.
class PutBackTest : public MainWindowFixture {
protected:
  PutBackTest() {
    HasSpies = false;
    Start(u"DMM");
    for (const auto* item : {u"IntervalPacing", u"OPCPacing", u"AutoReadAfterQueryMode", u"AutoErrorCheckingMode"}) {
      SetItem(item, u"Off");
    }
    Future().Text({});
  }

  std::string Left() { return Escaped(Future().Text()); }
  std::string PutBack() {
    Click(u"mnuPutBackLastRun");
    return Left();
  }
  bool IsOffered() { return Menu(u"mnuPutBackLastRun").Enabled(); }
};

TEST_F(PutBackTest, PutsBackAllThatARunTook) {
  EXPECT_FALSE(IsOffered());
  const StringView lines = u"  *RST\r\nREM remark\r\n\r\n\t\r\n\u00AEanswer\r\n*IDN? \r\nlast";
  Future().Text(lines);
  Click(u"mnuRun");
  EXPECT_EQ(Left(), "");
  EXPECT_TRUE(IsOffered());
  EXPECT_EQ(PutBack(), Escaped(lines));
  EXPECT_EQ(Future().SelStart(), 0);
  EXPECT_TRUE(Future().HasFocus());
  ExpectNoBox();
}

TEST_F(PutBackTest, PutsItInFrontOfWhatStandsThereAndOnce) {
  Future().Text(u"one\r\ntwo\r\n");
  Click(u"mnuStep");
  EXPECT_EQ(PutBack(), "one\\r\\ntwo\\r\\n");
  EXPECT_FALSE(IsOffered());
  EXPECT_EQ(PutBack(), "one\\r\\ntwo\\r\\n");
}

TEST_F(PutBackTest, OnlyTheLastRunCounts) {
  Future().Text(u"one\r\ntwo\r\nthree\r\nfour\r\n");
  Click(u"mnuStep");
  Future().SelStart(Future().TextLength() - 6);
  Click(u"mnuRunToCursor");
  EXPECT_EQ(Left(), "four\\r\\n");
  EXPECT_EQ(PutBack(), "two\\r\\nthree\\r\\nfour\\r\\n");
}

TEST_F(PutBackTest, BringsTheLineBackThatAStoppedRunHasTaken) {
  Future().Text(u"one\r\ntwo\r\nthree\r\n");
  Driver->OnWrite = [this](const std::string&) {
    Click(u"mnuStop");
    return 0;
  };
  Click(u"mnuRun");
  EXPECT_EQ(Left(), "three\\r\\n");
  EXPECT_EQ(PutBack(), "one\\r\\ntwo\\r\\nthree\\r\\n");
}

TEST_F(PutBackTest, ARunWithinAStepIsPartOfIt) {
  Future().Text(u"one\r\ntwo\r\nthree\r\n");
  Driver->OnWrite = [this](const std::string& text) {
    if (text == "one") Click(u"mnuStep");
    return 0;
  };
  Click(u"mnuStep");
  EXPECT_EQ(Left(), "three\\r\\n");
  EXPECT_EQ(PutBack(), "one\\r\\ntwo\\r\\nthree\\r\\n");
}

TEST_F(PutBackTest, KeepsEveryLook) {
  Future().Text(u"plain\r\nmarked\r\nwith bold inside\r\nrest\r\nlast");
  Future().SelStart(7);
  Future().SelLength(8);
  Future().SelFormat({.SelIndent = 300, .SelColor = 0xFFFFFF, .SelUnderline = true});
  Future().SelStart(20);
  Future().SelLength(4);
  Future().SelFormat({.SelBold = true, .SelFontName = u"Other", .SelFontSize = 14.0});
  Future().SelStart(Future().TextLength() - 4);
  Future().SelLength(4);
  Future().SelFormat({.SelItalic = true});
  const String before = Future().TextRTF();
  Click(u"mnuRun");
  EXPECT_EQ(Left(), "");
  PutBack();
  EXPECT_EQ(ToUtf8(Future().TextRTF()), ToUtf8(before));
}

TEST_F(PutBackTest, LeavesTheLooksOfWhatStandsThere) {
  Future().Text(u"one\r\nred");
  Future().SelStart(5);
  Future().SelLength(3);
  Future().SelFormat({.SelAlignment = 1, .SelColor = 0x0000FF});
  const String before = Future().TextRTF();
  Click(u"mnuStep");
  PutBack();
  EXPECT_EQ(ToUtf8(Future().TextRTF()), ToUtf8(before));
}

TEST_F(PutBackTest, HiddenMarkersGoOnHiding) {
  Future().Text(u"\u00AEanswer\r\n*RST\r\n");
  Future().SelStart(0);
  Future().SelLength(1);
  Future().SelFormat({.SelColor = 0xFFFFFF});
  Click(u"mnuRun");
  PutBack();
  Wire.clear();
  Click(u"mnuRun");
  EXPECT_EQ(Wire, test::Journal{"write *RST"});
  PutBack();
  Future().SelStart(0);
  Future().SelLength(1);
  EXPECT_EQ(Future().SelFormat().SelColor, 0xFFFFFF);
}

TEST_F(PutBackTest, IsOneStepOfUndo) {
  Future().Text(u"one\r\ntwo\r\nrest");
  Future().SelStart(10);
  Click(u"mnuRunToCursor");
  ASSERT_TRUE(Future().Type(u"x"));
  EXPECT_EQ(PutBack(), "one\\r\\ntwo\\r\\nxrest");
  ASSERT_TRUE(Future().Undo());
  EXPECT_EQ(Left(), "xrest");
  ASSERT_TRUE(Future().Undo());
  EXPECT_EQ(Left(), "rest");
  EXPECT_FALSE(Future().Undo()) << "what a run takes is no step";
}

TEST_F(PutBackTest, NeedsAnOpenInstrumentAndNothingThatRuns) {
  Future().Text(u"one\r\ntwo\r\n");
  Driver->OnWrite = [this](const std::string&) {
    EXPECT_FALSE(IsOffered());
    PutBack();
    return 0;
  };
  Click(u"mnuRun");
  EXPECT_EQ(Left(), "");
  EXPECT_TRUE(IsOffered());
  SetOpened(false);
  EXPECT_FALSE(IsOffered());
  EXPECT_EQ(PutBack(), "OPEN AN INSTRUMENT!");
  SetOpened();
  EXPECT_EQ(PutBack(), "one\\r\\ntwo\\r\\nREM Enter commands here.\\r\\n");
}

} // namespace
} // namespace portico::test
