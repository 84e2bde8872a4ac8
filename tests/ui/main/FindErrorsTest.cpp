#include "memory/forms/DialogControls.h"
#include "memory/forms/ListView.h"
#include "ui/main/ErringInstrumentFixture.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using ::testing::ElementsAre;

class FindErrorsTest : public ErringInstrumentFixture {
protected:
  std::vector<std::int32_t> Marked() { return Past().MarkedLines(); }
  std::vector<std::string> Lines() {
    std::vector<std::string> lines;
    const String text = Past().Text();
    for (const StringView line : Split(text, NewLine)) lines.push_back(ToUtf8(line));
    return lines;
  }
  std::vector<std::string> MarkedTexts() {
    std::vector<std::string> texts;
    for (const std::int32_t line : Marked()) texts.push_back(Lines()[static_cast<std::size_t>(line)]);
    return texts;
  }
  /// Two errors, with lines in front, between and behind.
  void RunTwoErrors() {
    Start(u"DMM");
    Run(u"*CLS\r\nBAD\r\nREM a remark\r\n*RST\r\nBAD\r\n*WAI\r\n");
  }
};

TEST_F(FindErrorsTest, WithoutAnErrorThereIsNothingToFind) {
  Start(u"DMM");
  Run(u"*CLS\r\n*IDN?\r\n");
  EXPECT_THAT(Marked(), ElementsAre());
  for (const StringView item : {u"mnuNextError", u"mnuPreviousError", u"mnuErrors"}) {
    EXPECT_FALSE(Menu(item).Enabled()) << ToUtf8(item);
  }
}

TEST_F(FindErrorsTest, AnAnswerOfTheErrorQueryIsMarked) {
  RunTwoErrors();
  const std::string marked = "\u00AE-113,\"Undefined header\"";
  EXPECT_THAT(MarkedTexts(), ElementsAre(marked, marked));
  EXPECT_TRUE(Menu(u"mnuNextError").Enabled());
  EXPECT_TRUE(Menu(u"mnuPreviousError").Enabled());
  EXPECT_TRUE(Menu(u"mnuErrors").Enabled());
}

TEST_F(FindErrorsTest, WhatTheDriverSaysIsMarked) {
  bool fails = false;
  Driver->OnWrite = [&](const std::string& text) {
    fails = text == "*TST?";
    return 0;
  };
  Driver->OnRead = [&] { return fails ? DriverDouble::Reading{-1151016, ""} : DriverDouble::Reading{0, "0\n"}; };
  Start(u"DMM");
  Run(u"*TST?\r\n*CLS\r\n");
  ASSERT_EQ(Marked().size(), 1U);
  EXPECT_EQ(Lines()[static_cast<std::size_t>(Marked()[0]) - 1], "*TST?");
}

TEST_F(FindErrorsTest, OfAWriteThatFailedTheInstructionIsMarked) {
  Start(u"DMM");
  Driver->Statuses["write *RST"] = -1151016;
  Run(u"*CLS\r\n*RST\r\n");
  ASSERT_FALSE(Marked().empty());
  EXPECT_EQ(MarkedTexts()[0], "*RST");
}

TEST_F(FindErrorsTest, AnAnswerToAnyOtherQueryIsNone) {
  Driver->OnRead = [] { return DriverDouble::Reading{0, "1\n"}; };
  Start(u"DMM");
  Click(u"mnuOPC");
  EXPECT_THAT(Marked(), ElementsAre());
  Click(u"mnuGetStatus");
  EXPECT_EQ(Marked().size(), 1U) << "the error query, sent from the menu";
}

TEST_F(FindErrorsTest, TheKeysGoFromErrorToErrorRoundTheEnd) {
  RunTwoErrors();
  const auto marked = Marked();
  ASSERT_EQ(marked.size(), 2U);
  Future().SetFocus();
  const auto press = [&](std::int32_t shift) {
    EXPECT_TRUE(MemoryForm().PressKey(F1Key + 6, shift));
    return Past().GetLineFromChar(Past().SelStart());
  };
  Past().SelStart(0);
  EXPECT_EQ(press(0), marked[0]);
  EXPECT_EQ(ToUtf8(Past().SelText()), "\u00AE-113,\"Undefined header\"");
  EXPECT_TRUE(Past().HasFocus());
  EXPECT_EQ(press(0), marked[1]);
  EXPECT_EQ(press(0), marked[0]);
  EXPECT_EQ(press(ShiftState), marked[1]);
  EXPECT_EQ(press(ShiftState), marked[0]);
  Past().SelStart(Past().TextLength());
  EXPECT_EQ(press(ShiftState), marked[1]);
}

TEST_F(FindErrorsTest, TheListTellsLineInstructionAndAnswerAndLeadsThere) {
  RunTwoErrors();
  const auto marked = Marked();
  Past().SelStart(Past().TextLength());
  std::vector<std::string> rows;
  std::int32_t selected = -1;
  Screen->OnShowModal(u"ErrorsDialog", [&](memory::Form& form) {
    auto& list = FindControl<memory::ListView>(form, u"lstErrors");
    for (std::int32_t i = 0; i < list.ListCount(); ++i) rows.push_back(ToUtf8(list.Row(i)));
    selected = list.ListIndex();
    EXPECT_TRUE(list.DoubleClick(0));
  });
  Click(u"mnuErrors");
  EXPECT_THAT(rows, ElementsAre(std::to_string(marked[0] + 1) + " | BAD | -113,\"Undefined header\"",
                                std::to_string(marked[1] + 1) + " | BAD | -113,\"Undefined header\""));
  EXPECT_EQ(selected, 1) << "the one nearest to the caret";
  EXPECT_EQ(Past().GetLineFromChar(Past().SelStart()), marked[0]);
  EXPECT_FALSE(Past().SelText().empty());
  ExpectNoBox();
}

TEST_F(FindErrorsTest, TheListsButtonsGoThereOrLeaveAllAsItIs) {
  RunTwoErrors();
  const auto marked = Marked();
  Past().SelStart(0);
  Screen->OnShowModal(u"ErrorsDialog", [&](memory::Form& form) {
    EXPECT_TRUE(FindControl<memory::CommandButton>(form, u"CancelButton").Press());
  });
  Click(u"mnuErrors");
  EXPECT_EQ(Past().SelStart(), 0);
  Screen->OnShowModal(u"ErrorsDialog", [&](memory::Form& form) {
    FindControl<memory::ListView>(form, u"lstErrors").Select(1);
    EXPECT_TRUE(FindControl<memory::CommandButton>(form, u"OKButton").Press());
  });
  Click(u"mnuErrors");
  EXPECT_EQ(Past().GetLineFromChar(Past().SelStart()), marked[1]);
}

TEST_F(FindErrorsTest, MarksChangeNothingThatIsSentOrShown) {
  Start(u"DMM");
  Click(u"mnuClearHistory");
  const std::size_t opened = Wire.size();
  Run(u"BAD\r\nREM then\r\n*IDN?\r\n");
  const std::vector<std::string> sent(Wire.begin() + static_cast<std::ptrdiff_t>(opened), Wire.end());
  ASSERT_EQ(Marked().size(), 1U);
  EXPECT_THAT(sent, ElementsAre("write *OPC?", "read", "write BAD", "write :SYST:ERR?", "read", //
                                "write *OPC?", "read", "write *IDN?", "read", "write :SYST:ERR?", "read"));
  EXPECT_EQ(ToUtf8(Past().Text()), "\u00A9*OPC?\r\n\u00AE1\r\nBAD\r\n"
                                   "\u00A9:SYST:ERR?\r\n\u00AE-113,\"Undefined header\"\r\n"
                                   "REM then\r\n"
                                   "\u00A9*OPC?\r\n\u00AE1\r\n*IDN?\r\n\u00AE1\r\n"
                                   "\u00A9:SYST:ERR?\r\n\u00AE0,\"No error\"\r\n");
}

TEST_F(FindErrorsTest, ClearingTheHistoryTakesTheMarksAway) {
  RunTwoErrors();
  Click(u"mnuClearHistory");
  EXPECT_THAT(Marked(), ElementsAre());
  EXPECT_FALSE(Menu(u"mnuNextError").Enabled());
  Run(u"BAD\r\n");
  EXPECT_EQ(Marked().size(), 1U);
  EXPECT_TRUE(Menu(u"mnuNextError").Enabled());
}

} // namespace
} // namespace portico::test
