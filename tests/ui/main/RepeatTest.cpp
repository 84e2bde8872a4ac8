#include "memory/forms/DialogControls.h"
#include "ui/main/ErringInstrumentFixture.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

class RepeatTest : public ErringInstrumentFixture {
protected:
  using Act = std::function<void(memory::Form&)>;

  void Open(StringView lines) {
    Start(u"DMM");
    for (const auto* item : {u"IntervalPacing", u"OPCPacing", u"AutoErrorCheckingMode"}) SetItem(item, u"Off");
    Future().Text(lines);
    Future().SelStart(0);
    Wire.clear();
  }
  /// Clicks "Repeat..." and answers its dialog.
  void Ask(const Act& act) {
    Screen->OnShowModal(u"RepeatDialog", [act](memory::Form& form) {
      act(form);
      if (form.IsShown()) form.PressKey(EscapeKey);
    });
    Click(u"mnuRepeat");
  }
  /// No turns: until stopped.
  void Repeat(StringView turns, StringView seconds) {
    Ask([&](memory::Form& form) {
      FindControl<ICheckBox>(form, u"chkForever").Value(turns.empty() ? Checked : Unchecked);
      FindControl<ITextBox>(form, u"txtTurns").Text(String(turns));
      FindControl<ITextBox>(form, u"txtSeconds").Text(String(seconds));
      form.PressKey(ReturnKey);
    });
  }
  std::string Announced() {
    std::string text;
    Ask([&](memory::Form& form) { text = ToUtf8(FindControl<IControl>(form, u"lblLines").Caption()); });
    return text;
  }
  void Select(std::int32_t start, std::int32_t length) {
    Future().SelStart(start);
    Future().SelLength(length);
  }
  std::vector<std::string> Told() {
    std::vector<std::string> prompts;
    for (const auto& call : Box->Calls()) prompts.push_back(ToUtf8(call.Prompt));
    return prompts;
  }
  /// Something happens in the first wait between two turns.
  std::unique_ptr<ITimer> InTheWait(const std::function<void()>& act) {
    auto timer = Loop->MakeTimer();
    timer->Interval(500);
    timer->Timer().Connect([raw = timer.get(), act] {
      raw->Enabled(false);
      act();
    });
    timer->Enabled(true);
    return timer;
  }
};

TEST_F(RepeatTest, SendsAndShowsWhatSoManyRunsWould) {
  const String lines = u"REM a remark\r\n\r\n  *RST\r\n*IDN?\r\n\u00AEanswer\r\n*CLS";
  Open(lines);
  Click(u"mnuClearHistory");
  for (int i = 0; i < 3; ++i) {
    Future().Text(lines + u"\r\n");
    Click(u"mnuRun");
  }
  const auto sent = Wire;
  const std::string shown = ToUtf8(Past().TextRTF());
  Click(u"mnuClearHistory");
  Wire.clear();
  Future().Text(lines);
  Repeat(u"3", u"0");
  EXPECT_EQ(Wire, sent);
  EXPECT_EQ(ToUtf8(Past().TextRTF()), shown);
  EXPECT_EQ(std::count(Wire.begin(), Wire.end(), "write *CLS"), 3);
  ExpectNoBox();
}

TEST_F(RepeatTest, LeavesTheCommandWindowAsItIs) {
  Open(u"*RST\r\n");
  Future().SelStart(6);
  ASSERT_TRUE(Future().Type(u"*CLS"));
  Select(2, 6);
  const std::string before = ToUtf8(Future().TextRTF());
  Repeat(u"2", u"0");
  EXPECT_EQ(ToUtf8(Future().TextRTF()), before);
  EXPECT_EQ(Future().SelStart(), 2);
  EXPECT_EQ(Future().SelLength(), 6);
  EXPECT_TRUE(Future().HasFocus());
  ASSERT_TRUE(Future().Undo());
  EXPECT_EQ(Left(), "*RST\r\n");
  EXPECT_FALSE(Menu(u"mnuPutBackLastRun").Enabled()) << "nothing was taken";
  EXPECT_FALSE(Window->Executing());
}

TEST_F(RepeatTest, KeepsWhatTheLastRunTook) {
  Open(u"");
  Run(u"*RST\r\n");
  Future().Text(u"*CLS\r\n");
  Repeat(u"2", u"0");
  EXPECT_TRUE(Menu(u"mnuPutBackLastRun").Enabled());
  Click(u"mnuPutBackLastRun");
  EXPECT_EQ(Left(), "*RST\r\n*CLS\r\n");
}

TEST_F(RepeatTest, RepeatsTheLinesThatTheSelectionTouches) {
  Open(u"one\r\ntwo\r\nthree\r\nfour");
  Select(6, 6); // from within "two" into "three"
  EXPECT_EQ(Announced(), "Repeats the 2 lines that the selection touches.");
  Repeat(u"2", u"0");
  EXPECT_THAT(Wire, ElementsAre("write two", "write three", "write two", "write three"));
  Select(5, 5); // "two" with its line end
  EXPECT_EQ(Announced(), "Repeats the line that the selection touches.");
  Select(0, 1);
  Wire.clear();
  Repeat(u"1", u"0");
  EXPECT_THAT(Wire, ElementsAre("write one"));
  Select(19, 1);
  Wire.clear();
  Repeat(u"1", u"0");
  EXPECT_THAT(Wire, ElementsAre("write four"));
  Select(3, 0);
  EXPECT_EQ(Announced(), "Repeats all 4 lines.");
  Future().Text(u"one");
  EXPECT_EQ(Announced(), "Repeats the only line.");
}

TEST_F(RepeatTest, AnAnswerIsKnownByItsItalics) {
  Open(u"*RST\r\n0\r\n");
  Select(6, 3);
  Future().SelFormat({.SelItalic = true});
  Future().SelLength(0);
  Repeat(u"2", u"0");
  EXPECT_THAT(Wire, ElementsAre("write *RST", "write *RST"));
}

TEST_F(RepeatTest, IsOfferedWheneverRunIs) {
  Start();
  EXPECT_FALSE(Menu(u"mnuRepeat").Enabled());
  SetOpened();
  Window->UpdateUI({}, {});
  EXPECT_TRUE(Menu(u"mnuRepeat").Enabled());
  Future().Text({});
  Window->UpdateUI({}, {});
  EXPECT_FALSE(Menu(u"mnuRepeat").Enabled());
  Click(u"mnuRepeat");
  ExpectNoBox();
}

TEST_F(RepeatTest, StopEndsItAtAnInstructionsEnd) {
  Open(u"one\r\ntwo\r\nthree\r\n");
  Driver->OnWrite = [&](const std::string& text) {
    EXPECT_TRUE(Menu(u"mnuStop").Enabled());
    EXPECT_FALSE(Menu(u"mnuRepeat").Enabled());
    if (text == "two") Click(u"mnuStop");
    return 0;
  };
  Repeat(u"5", u"0");
  EXPECT_THAT(Wire, ElementsAre("write one", "write two"));
  EXPECT_THAT(Told(), ElementsAre("1 turn has begun."));
  EXPECT_FALSE(Window->StopRequested());
  EXPECT_EQ(Left(), "one\r\ntwo\r\nthree\r\n");
}

TEST_F(RepeatTest, StopEndsTheWait) {
  Open(u"one\r\n");
  const auto timer = InTheWait([this] { Click(u"mnuStop"); });
  Repeat(u"", u"1000");
  EXPECT_THAT(Wire, ElementsAre("write one"));
  EXPECT_THAT(Told(), ElementsAre("1 turn has begun."));
  EXPECT_FALSE(Window->Executing());
  EXPECT_TRUE(Menu(u"mnuRun").Enabled());
}

TEST_F(RepeatTest, ClosingTheInstrumentEndsTheWait) {
  Open(u"one\r\n");
  const auto timer = InTheWait([this] { Click(u"mnuFileCloseInstrument"); });
  Repeat(u"", u"1000");
  EXPECT_EQ(std::count(Wire.begin(), Wire.end(), "write one"), 1);
  EXPECT_EQ(Left(), "OPEN AN INSTRUMENT!");
  EXPECT_FALSE(Window->Executing());
}

TEST_F(RepeatTest, ClosingTheInstrumentEndsATurn) {
  Open(u"one\r\ntwo\r\nthree\r\n");
  auto timer = Loop->MakeTimer();
  timer->Interval(1);
  timer->Timer().Connect([&] {
    timer->Enabled(false);
    Click(u"mnuFileCloseInstrument");
  });
  Driver->OnWrite = [&](const std::string& text) {
    if (text == "one") {
      timer->Enabled(true);
      Clock.Advance(1ms);
    }
    return 0;
  };
  Repeat(u"", u"0");
  EXPECT_EQ(std::count(Wire.begin(), Wire.end(), "write two"), 0);
  EXPECT_EQ(std::count(Wire.begin(), Wire.end(), "write one"), 1);
}

TEST_F(RepeatTest, ClosingTheProgramEndsTheWait) {
  Open(u"one\r\n");
  const auto timer = InTheWait([this] { Form().Close(); });
  EXPECT_TRUE(Quits([&] { Repeat(u"", u"1000"); }));
  EXPECT_THAT(Wire, ElementsAre("write one"));
  ExpectNoBox();
  End();
}

TEST_F(RepeatTest, StopAtErrorsEndsIt) {
  Open(u"*RST\r\nBAD\r\n*CLS\r\n");
  SetItem(u"AutoErrorCheckingMode", u"On");
  Click(u"mnuStopAtErrors");
  Repeat(u"5", u"0");
  EXPECT_EQ(std::count(Wire.begin(), Wire.end(), "write *RST"), 1);
  EXPECT_EQ(std::count(Wire.begin(), Wire.end(), "write *CLS"), 0);
  EXPECT_THAT(Told(), ElementsAre("1 turn has begun."));
}

TEST_F(RepeatTest, WhatIsSentIsListedOnce) {
  Open(u"one\r\ntwo\r\n");
  Repeat(u"3", u"0");
  Future().Text({});
  Click(u"mnuEarlierLine");
  EXPECT_EQ(Left(), "two");
  Click(u"mnuEarlierLine");
  EXPECT_EQ(Left(), "one");
  Click(u"mnuEarlierLine");
  EXPECT_EQ(Left(), "one") << "there is none before it";
}

TEST_F(RepeatTest, TheDialogRefusesWhatIsNoNumberAndBeginsWithWhatWasAskedLast) {
  Open(u"one\r\n");
  Ask([&](memory::Form& form) {
    auto& turns = FindControl<ITextBox>(form, u"txtTurns");
    auto& seconds = FindControl<ITextBox>(form, u"txtSeconds");
    auto& forever = FindControl<ICheckBox>(form, u"chkForever");
    EXPECT_EQ(ToUtf8(turns.Text()), "10");
    EXPECT_EQ(ToUtf8(seconds.Text()), "1");
    EXPECT_EQ(forever.Value(), Unchecked);
    for (const auto* text : {u"", u"0", u"1.5", u"1000000001", u"many"}) {
      turns.Text(text);
      form.PressKey(ReturnKey);
    }
    turns.Text(u"2");
    for (const auto* text : {u"", u"-1", u"0.0009", u"1000001", u"nan"}) {
      seconds.Text(text);
      form.PressKey(ReturnKey);
    }
    EXPECT_TRUE(form.IsShown());
    forever.Value(Checked);
    EXPECT_FALSE(turns.Enabled());
  });
  const std::string noTurns = "Use 1 to 1000000000 turns.";
  const std::string noSeconds = "Use 0, or 0.001 to 1000000 seconds.";
  EXPECT_THAT(Told(), ElementsAre(noTurns, noTurns, noTurns, noTurns, noTurns, noSeconds, noSeconds, noSeconds,
                                  noSeconds, noSeconds));
  EXPECT_TRUE(Wire.empty());
  Repeat(u"2", u"0.001");
  Ask([&](memory::Form& form) {
    EXPECT_EQ(ToUtf8(FindControl<ITextBox>(form, u"txtTurns").Text()), "2");
    EXPECT_EQ(ToUtf8(FindControl<ITextBox>(form, u"txtSeconds").Text()), "0.001");
  });
}

TEST_F(RepeatTest, AFailureIsShownAndLeavesTheWindowExecutingAsThatOfARun) {
  Open(u"one\r\n");
  SetItem(u"IntervalPacing", u"On");
  SetItem(u"PacingInterval", u"never");
  Repeat(u"2", u"0");
  ASSERT_EQ(Box->Calls().size(), 1U);
  EXPECT_EQ(Told()[0].substr(0, 24), "Can't run instructions.\r");
  EXPECT_TRUE(Window->Executing());
}

} // namespace
} // namespace portico::test
