#include "memory/forms/DialogControls.h"
#include "memory/forms/ListView.h"
#include "ui/main/MainWindowFixture.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using ::testing::ElementsAre;

class SearchSentLinesTest : public MainWindowFixture {
protected:
  SearchSentLinesTest() { HasSpies = false; }

  void Send(StringView lines) {
    Start(u"DMM");
    for (const auto* item : {u"IntervalPacing", u"OPCPacing", u"AutoReadAfterQueryMode", u"AutoErrorCheckingMode"}) {
      SetItem(item, u"Off");
    }
    Future().Text(lines);
    Click(u"mnuRun");
  }
  void Search(const std::function<void(memory::Form&)>& act) {
    Screen->OnShowModal(u"SearchDialog", [act](memory::Form& form) {
      act(form);
      if (form.IsShown()) form.PressKey(EscapeKey);
    });
    Click(u"mnuSearchSentLines");
  }
  static void Type(memory::Form& form, const String& text) {
    EXPECT_TRUE(FindControl<memory::TextBox>(form, u"txtText").Type(text));
  }
  static memory::ListView& List(memory::Form& form) { return FindControl<memory::ListView>(form, u"lstLines"); }
  static std::vector<std::string> Rows(memory::Form& form) {
    std::vector<std::string> rows;
    for (std::int32_t i = 0; i < List(form).ListCount(); ++i) rows.push_back(ToUtf8(List(form).Row(i)));
    return rows;
  }
  std::string Text() { return ToUtf8(Future().Text()); }
};

TEST_F(SearchSentLinesTest, ListsThemTheNewestFirstAndNarrowsAsOneTypes) {
  Send(u"*RST\r\nMEAS:VOLT?\r\n*RST\r\nmeas:curr?\r\n");
  Search([](memory::Form& form) {
    EXPECT_THAT(Rows(form), ElementsAre("meas:curr?", "*RST", "MEAS:VOLT?"));
    EXPECT_EQ(List(form).ListIndex(), 0);
    Type(form, u"volt");
    EXPECT_THAT(Rows(form), ElementsAre("MEAS:VOLT?"));
    EXPECT_EQ(List(form).ListIndex(), 0);
    Type(form, u"voltage");
    EXPECT_THAT(Rows(form), ElementsAre());
    form.PressKey(ReturnKey);
    EXPECT_TRUE(form.IsShown()) << "there is nothing to bring";
  });
  EXPECT_EQ(Text(), "");
}

TEST_F(SearchSentLinesTest, ReturnBringsTheChosenLineToTheCaretsLine) {
  Send(u"*RST\r\nMEAS:VOLT?\r\nmeas:curr?\r\n");
  Future().Text(u"one\r\ntwo\r\n");
  Future().SelStart(1);
  Search([](memory::Form& form) {
    Type(form, u"meas");
    form.PressKey(DownKey);
    EXPECT_EQ(List(form).ListIndex(), 1);
    form.PressKey(DownKey);
    EXPECT_EQ(List(form).ListIndex(), 1) << "it is the last";
    form.PressKey(ReturnKey);
  });
  EXPECT_EQ(Text(), "MEAS:VOLT?\r\ntwo\r\n");
  EXPECT_EQ(Future().SelStart(), 10);
  EXPECT_TRUE(Future().HasFocus());
  ASSERT_TRUE(Future().Undo());
  EXPECT_EQ(Text(), "one\r\ntwo\r\n") << "in one step";
  ExpectNoBox();
}

TEST_F(SearchSentLinesTest, TheArrowKeysMoveTwiceNowhere) {
  Send(u"a1\r\na2\r\na3\r\n");
  Search([](memory::Form& form) {
    Type(form, u"a");
    form.PressKey(UpKey);
    EXPECT_EQ(List(form).ListIndex(), 0);
    form.PressKey(DownKey, ShiftState);
    EXPECT_EQ(List(form).ListIndex(), 0);
    EXPECT_TRUE(List(form).Select(1)); // with the focus there, the list moves itself
    form.PressKey(DownKey);
    EXPECT_EQ(List(form).ListIndex(), 1);
  });
}

TEST_F(SearchSentLinesTest, ADoubleClickBringsToo) {
  Send(u"*RST\r\n*CLS\r\n");
  Search([](memory::Form& form) { EXPECT_TRUE(List(form).DoubleClick(1)); });
  EXPECT_EQ(Text(), "*RST");
}

TEST_F(SearchSentLinesTest, WhatIsBroughtIsPlainAndLaterLineGoesOnFromThere) {
  Send(u"*RST\r\n*CLS\r\n");
  Future().Text(u"x");
  Future().SelStart(0);
  Future().SelLength(1);
  Future().SelFormat({.SelBold = true, .SelColor = 0x0000FF, .SelItalic = true});
  Future().SelStart(0);
  Search([](memory::Form& form) {
    Type(form, u"rst");
    form.PressKey(ReturnKey);
  });
  EXPECT_EQ(Text(), "*RST");
  Future().SelStart(0);
  Future().SelLength(4);
  EXPECT_EQ(Future().SelFormat().SelBold, false);
  EXPECT_EQ(Future().SelFormat().SelColor, 0);
  EXPECT_EQ(Future().SelFormat().SelItalic, false);
  Future().SelStart(4);
  Click(u"mnuLaterLine");
  EXPECT_EQ(Text(), "*CLS");
  Click(u"mnuLaterLine");
  EXPECT_EQ(Text(), "x") << "what stood there";
}

TEST_F(SearchSentLinesTest, EscapeLeavesAllAsItWas) {
  Send(u"*RST\r\n");
  Future().Text(u"one");
  Future().SelStart(1);
  Future().SelLength(2);
  Search([](memory::Form& form) {
    Type(form, u"r");
    form.PressKey(EscapeKey);
  });
  EXPECT_EQ(Text(), "one");
  EXPECT_EQ(Future().SelStart(), 1);
  EXPECT_EQ(Future().SelLength(), 2);
}

TEST_F(SearchSentLinesTest, IsOfferedWhenEarlierLineIs) {
  Send(u"*RST\r\n");
  EXPECT_TRUE(Menu(u"mnuSearchSentLines").Enabled());
  SetOpened(false);
  EXPECT_FALSE(Menu(u"mnuSearchSentLines").Enabled());
  Click(u"mnuSearchSentLines");
  EXPECT_EQ(Text(), "OPEN AN INSTRUMENT!");
}

} // namespace
} // namespace portico::test
