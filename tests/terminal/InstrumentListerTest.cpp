#include "terminal/InstrumentLister.h"

#include "memory/EventLoop.h"
#include "memory/desktop/InstrumentList.h"
#include "memory/desktop/InstrumentSearch.h"
#include "support/doubles/FlushRecorder.h"
#include "support/doubles/ManualClock.h"

#include <gtest/gtest.h>

#include <sstream>

namespace portico::terminal {
namespace {

using std::chrono::milliseconds;

class InstrumentListerTest : public testing::Test {
protected:
  /// At that time after the beginning it answers. To be called in the order of the times.
  void FindAfter(milliseconds time, const String& name, const String& description = {}) {
    m_answers.push_back({time, {name, description}});
  }
  std::string List(std::int32_t time) {
    const auto begin = m_clock.Now();
    m_clock.OnWait = [&](std::chrono::milliseconds) {
      EXPECT_TRUE(Search.IsRunning());
      m_waitingWith = Output.str();
      while (!m_answers.empty() && m_clock.Now() - begin >= m_answers.front().first) {
        Search.Find(m_answers.front().second.Name, m_answers.front().second.Description);
        m_answers.erase(m_answers.begin());
      }
    };
    m_went = PrintInstruments(Known, Search, time, m_loop, Output);
    m_took = std::chrono::duration_cast<std::chrono::milliseconds>(m_clock.Now() - begin);
    return Output.str();
  }

  memory::InstrumentList Known{{u"Visa->a", u"Serial->x", u"VInstr->b"}};
  memory::InstrumentSearch Search;
  std::ostringstream Output;
  bool m_went = false;
  milliseconds m_took{};
  std::string m_waitingWith; // what was listed when the last wait began

private:
  test::ManualClock m_clock;
  memory::EventLoop m_loop{m_clock};
  std::vector<std::pair<milliseconds, FoundInstrument>> m_answers;
};

TEST_F(InstrumentListerTest, BareNamesOfTheKnownOnesComeFirst) {
  EXPECT_EQ(List(1000), "a\nb\n");
  EXPECT_TRUE(m_went);
}

TEST_F(InstrumentListerTest, AnswersComeBehindWithWhatTheySayOfThemselves) {
  FindAfter(milliseconds(0), u"d", u"Tolvane, M7");
  FindAfter(milliseconds(500), u"c");
  EXPECT_EQ(List(1000), "a\nb\nd\tTolvane, M7\nc\n");
  EXPECT_EQ(m_waitingWith, Output.str());
}

TEST_F(InstrumentListerTest, EachLineIsWrittenAsItComes) {
  test::FlushRecorder recorder;
  Output.std::ios::rdbuf(&recorder);
  FindAfter(milliseconds(100), u"c");
  FindAfter(milliseconds(500), u"d");
  List(1000);
  EXPECT_EQ(recorder.Flushed, (std::vector<std::string>{"a\n", "a\nb\n", "a\nb\nc\n", "a\nb\nc\nd\n"}));
}

TEST_F(InstrumentListerTest, AnswerBetweenTheLastLookAndTheEndIsListed) {
  FindAfter(milliseconds(100), u"c");
  EXPECT_EQ(List(150), "a\nb\nc\n");
}

TEST_F(InstrumentListerTest, EndsAfterItsTime) {
  FindAfter(milliseconds(2100), u"late");
  EXPECT_EQ(List(2000), "a\nb\n");
  EXPECT_EQ(m_took, milliseconds(2000));
  EXPECT_FALSE(Search.IsRunning());
}

TEST_F(InstrumentListerTest, TimeMayBeShorterThanThatBetweenTwoLooks) {
  EXPECT_EQ(List(1), "a\nb\n");
  EXPECT_EQ(m_took, milliseconds(1));
}

TEST_F(InstrumentListerTest, WhatIsKnownIsNotSearchedFor) {
  List(1000);
  EXPECT_EQ(Search.Known(), (std::vector<String>{u"a", u"b"}));
}

TEST_F(InstrumentListerTest, ControlCharactersDoNotReachATerminal) {
  Known.Items({u"Visa->\x1B[1m"});
  FindAfter(milliseconds(0), u"c", u"\x1B[2J");
  EXPECT_EQ(List(1000), "?[1m\nc\t?[2J\n");
}

TEST_F(InstrumentListerTest, OutputThatCannotBeWrittenEndsIt) {
  Output.setstate(std::ios::badbit);
  List(1000);
  EXPECT_FALSE(m_went);
  EXPECT_LT(m_took, milliseconds(1000));
  EXPECT_FALSE(Search.IsRunning());
}

} // namespace
} // namespace portico::terminal
