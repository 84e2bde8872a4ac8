#include "views/recall/SentLines.h"

#include "memory/EventLoop.h"
#include "memory/SettingsStore.h"
#include "support/doubles/ManualClock.h"
#include "support/fixtures/FrameworkTest.h"

namespace portico::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

/// A file in memory, which may refuse.
class LineFileDouble final : public ILineFile {
public:
  Contents Read() override { return {Kept, Fault}; }
  std::optional<String> Append(const std::vector<String>& lines) override {
    ++Writes;
    if (!Fault) Kept.insert(Kept.end(), lines.begin(), lines.end());
    return Fault;
  }
  std::optional<String> Clear() override {
    if (!Fault) Kept.clear();
    return Fault;
  }

  std::vector<String> Kept;
  std::optional<String> Fault;
  int Writes = 0;
};

template <class Lines>
Texts TextsOf(const Lines& lines) {
  Texts texts;
  for (const String& line : lines) texts.push_back(ToUtf8(line));
  return texts;
}

class SentLinesTest : public FrameworkTest {
protected:
  SentLinesTest() {
    gEventLoop = Loop;
    gSettingsStore = Store;
    gSentLinesFile = File;
  }
  ~SentLinesTest() override {
    gSentLinesFile.reset();
    gSettingsStore.reset();
    gEventLoop.reset();
  }

  void Pass(std::chrono::milliseconds time) {
    Clock.Advance(time);
    Loop->DoEvents();
  }
  Texts Kept() const { return TextsOf(File->Kept); }

  ManualClock Clock;
  std::shared_ptr<memory::EventLoop> Loop = std::make_shared<memory::EventLoop>(Clock);
  std::shared_ptr<memory::SettingsStore> Store = std::make_shared<memory::SettingsStore>();
  std::shared_ptr<LineFileDouble> File = std::make_shared<LineFileDouble>();
};

TEST_F(SentLinesTest, StandInTheOrderOfSendingAndNoneBehindItsEqual) {
  SentLines sent;
  for (const StringView line : {u"*RST", u"*IDN?", u"*IDN?", u"*RST", u"*rst", u""}) sent.Add(line);
  EXPECT_EQ(TextsOf(sent.Lines()), (Texts{"*RST", "*IDN?", "*RST", "*rst"}));
}

TEST_F(SentLinesTest, BeginWithWhatWasKept) {
  File->Kept = {u"one", u"two", u"two"};
  SentLines sent;
  EXPECT_EQ(TextsOf(sent.Lines()), (Texts{"one", "two"}));
  sent.Add(u"two");
  sent.Add(u"three");
  EXPECT_EQ(TextsOf(sent.Lines()), (Texts{"one", "two", "three"}));
}

TEST_F(SentLinesTest, AreWrittenASecondLaterAllAtOnce) {
  SentLines sent;
  sent.Add(u"one");
  Pass(600ms);
  sent.Add(u"two");
  EXPECT_EQ(File->Writes, 0);
  Pass(400ms);
  EXPECT_EQ(Kept(), (Texts{"one", "two"})) << "a second after the first of them";
  EXPECT_EQ(File->Writes, 1);
  Pass(5000ms);
  EXPECT_EQ(File->Writes, 1) << "there is nothing new";
  sent.Add(u"three");
  Pass(1000ms);
  EXPECT_EQ(Kept(), (Texts{"one", "two", "three"}));
}

TEST_F(SentLinesTest, AreWrittenAtTheEnd) {
  {
    SentLines sent;
    sent.Add(u"one");
  }
  EXPECT_EQ(Kept(), Texts{"one"});
}

TEST_F(SentLinesTest, TheOldestGoWhereTheyAreTooMany) {
  SentLines sent({.Lines = 3, .Bytes = 1000});
  for (const StringView line : {u"1", u"2", u"3", u"4"}) sent.Add(line);
  EXPECT_EQ(TextsOf(sent.Lines()), (Texts{"2", "3", "4"}));
}

TEST_F(SentLinesTest, TheOldestGoWhereTheyAreTooLong) {
  SentLines sent({.Lines = 100, .Bytes = 10});
  for (const StringView line : {u"aaaa", u"bbbb", u"cccc"}) sent.Add(line);
  EXPECT_EQ(TextsOf(sent.Lines()), (Texts{"bbbb", "cccc"}));
  Pass(1000ms);
  EXPECT_EQ(Kept(), (Texts{"bbbb", "cccc"}));
}

TEST_F(SentLinesTest, DataAreNoLines) {
  SentLines sent;
  sent.Add(String(16'385, u'x'));
  EXPECT_TRUE(sent.Lines().empty());
  sent.Add(String(16'384, u'x'));
  EXPECT_EQ(sent.Lines().size(), 1U);
}

TEST_F(SentLinesTest, TenThousandAreKept) {
  SentLines sent;
  for (int i = 0; i < 10'001; ++i) sent.Add(ToText(std::int64_t{i}));
  EXPECT_EQ(sent.Lines().size(), 10'000U);
  EXPECT_EQ(sent.Lines().front(), u"1");
}

TEST_F(SentLinesTest, AreForgotten) {
  File->Kept = {u"one"};
  SentLines sent;
  sent.Add(u"two");
  sent.Forget();
  EXPECT_TRUE(sent.Lines().empty());
  Pass(1000ms);
  EXPECT_EQ(Kept(), Texts{});
  sent.Add(u"three");
  Pass(1000ms);
  EXPECT_EQ(Kept(), Texts{"three"});
}

TEST_F(SentLinesTest, AreKeptUnlessTheUserHasSwitchedThatOff) {
  SentLines sent;
  EXPECT_TRUE(sent.IsKept());
  sent.Add(u"before");
  sent.IsKept(false);
  EXPECT_EQ(Kept(), Texts{"before"});
  EXPECT_EQ(Store->GetSetting(u"Tolvane Portico", u"Data", u"KeepSentLines", u""), u"Off");
  sent.Add(u"secret");
  Pass(1000ms);
  EXPECT_EQ(TextsOf(sent.Lines()), (Texts{"before", "secret"})) << "for this session";
  sent.IsKept(true);
  sent.Add(u"after");
  Pass(1000ms);
  EXPECT_EQ(Kept(), (Texts{"before", "after"}));
  EXPECT_EQ(Store->GetSetting(u"Tolvane Portico", u"Data", u"KeepSentLines", u""), u"On");
}

TEST_F(SentLinesTest, SwitchedOffTheyStaySo) {
  Store->SaveSetting(u"Tolvane Portico", u"Data", u"KeepSentLines", u"Off");
  File->Kept = {u"before"};
  {
    SentLines sent;
    EXPECT_FALSE(sent.IsKept());
    EXPECT_EQ(TextsOf(sent.Lines()), Texts{"before"});
    sent.Add(u"secret");
  }
  EXPECT_EQ(Kept(), Texts{"before"});
}

TEST_F(SentLinesTest, WhatCannotBeWrittenIsTriedAgainWithTheNextLine) {
  SentLines sent;
  File->Fault = u"The disk is full.";
  sent.Add(u"one");
  Pass(1000ms);
  Pass(5000ms);
  EXPECT_EQ(File->Writes, 1) << "not again and again while nothing is sent";
  File->Fault.reset();
  sent.Add(u"two");
  Pass(1000ms);
  EXPECT_EQ(Kept(), (Texts{"one", "two"}));
}

TEST_F(SentLinesTest, AFaultIsToldOnce) {
  File->Fault = u"It cannot be read.";
  SentLines sent;
  EXPECT_EQ(sent.TakeFault(), u"It cannot be read.");
  EXPECT_EQ(sent.TakeFault(), std::nullopt);
  sent.Add(u"one");
  Pass(1000ms);
  EXPECT_EQ(sent.TakeFault(), std::nullopt) << "the same again";
  File->Fault = u"It cannot be written.";
  sent.Add(u"two");
  Pass(1000ms);
  EXPECT_EQ(sent.TakeFault(), u"It cannot be written.");
}

TEST_F(SentLinesTest, TheFirstFaultIsToldWhereSeveralWait) {
  File->Fault = u"It cannot be read.";
  SentLines sent;
  File->Fault = u"It cannot be written.";
  sent.Add(u"one");
  Pass(1000ms);
  EXPECT_EQ(sent.TakeFault(), u"It cannot be read.");
  EXPECT_EQ(sent.TakeFault(), std::nullopt);
}

TEST_F(SentLinesTest, WithoutAFileTheyLastAsLongAsTheProgram) {
  gSentLinesFile.reset();
  SentLines sent;
  sent.Add(u"one");
  Pass(1000ms);
  EXPECT_EQ(TextsOf(sent.Lines()), Texts{"one"});
  sent.Forget();
  EXPECT_TRUE(sent.Lines().empty());
  EXPECT_EQ(sent.TakeFault(), std::nullopt);
}

} // namespace
} // namespace portico::test
