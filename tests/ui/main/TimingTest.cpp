#include "memory/forms/DialogControls.h"
#include "memory/forms/ListView.h"
#include "timing/TimedDriver.h"
#include "ui/main/MainWindowFixture.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

/// The window in front of a driver whose times are taken. A query takes as long as its text is, in milliseconds.
class TimingTest : public MainWindowFixture {
protected:
  TimingTest() {
    HasSpies = false;
    timing::gTimedDriver = std::make_shared<timing::TimedDriver>(Driver, [this] { return Clock.Now(); });
    gInstrumentDriver = timing::gTimedDriver;
    Driver->OnWrite = [this](const std::string& text) {
      Clock.Advance(std::chrono::milliseconds(text.size()));
      return 0;
    };
    Driver->OnRead = [] { return DriverDouble::Reading{0, "1\n"}; };
  }
  ~TimingTest() override { timing::gTimedDriver = nullptr; }

  void Open() {
    Start(u"DMM");
    for (const auto* item : {u"IntervalPacing", u"OPCPacing", u"AutoErrorCheckingMode"}) SetItem(item, u"Off");
    timing::gTimedDriver->ForgetTimes();
  }
  void Run(StringView lines) {
    Future().Text(lines);
    Click(u"mnuRun");
  }
  memory::Form& Times() { return *Screen->Find(u"TimingWindow"); }
  std::string Last() { return ToUtf8(FindControl<IControl>(Times(), u"lblLast").Caption()); }
  std::vector<std::string> Rows() {
    auto& list = FindControl<memory::ListView>(Times(), u"lstTimes");
    std::vector<std::string> rows;
    for (std::int32_t i = 0; i < list.ListCount(); ++i) rows.push_back(ToUtf8(list.Row(i)));
    return rows;
  }
  void LetTimePass() {
    Clock.Advance(500ms);
    Loop->DoEvents();
  }
};

TEST_F(TimingTest, WhereNothingWasAskedItSaysSo) {
  Open();
  Click(u"mnuTiming");
  EXPECT_EQ(Last(), "No query has been answered yet.");
  EXPECT_THAT(Rows(), ElementsAre());
  EXPECT_FALSE(FindControl<IControl>(Times(), u"cmdForget").Enabled());
  ExpectNoBox();
}

TEST_F(TimingTest, WhereNobodyTakesTimesItSaysSo) {
  timing::gTimedDriver = nullptr;
  Start();
  Click(u"mnuTiming");
  EXPECT_EQ(Last(), "No query has been answered yet.");
}

TEST_F(TimingTest, TellsTheLastExchangeAndTheFiguresOfEachQuery) {
  Open();
  Run(u"*IDN?\r\n*RST\r\nMEAS:VOLT?\r\n*IDN?\r\n");
  Click(u"mnuTiming");
  EXPECT_EQ(Last(), "The last exchange took 5.000 ms: *IDN?");
  EXPECT_THAT(Rows(), ElementsAre("*IDN? | 2 | 5.000 | 5.000 | 5.000", "MEAS:VOLT? | 1 | 10.000 | 10.000 | 10.000"));
}

TEST_F(TimingTest, FollowsTheConversationWhileItIsOpen) {
  Open();
  Click(u"mnuTiming");
  Run(u"*IDN?\r\n");
  EXPECT_THAT(Rows(), ElementsAre()) << "not before its time";
  LetTimePass();
  EXPECT_EQ(Rows().size(), 1U);
  EXPECT_EQ(Last(), "The last exchange took 5.000 ms: *IDN?");
}

TEST_F(TimingTest, ALongQueryIsCutAndSignsStandAsTheyAre) {
  Open();
  Run(u"DATA? \"a&b\"," + String(60, u'x') + u"\r\n");
  Click(u"mnuTiming");
  EXPECT_EQ(Last(), "The last exchange took 72.000 ms: DATA? \"a&&b\"," + std::string(48, 'x') + "...");
}

TEST_F(TimingTest, BeginsAnew) {
  Open();
  Run(u"*IDN?\r\n");
  Click(u"mnuTiming");
  EXPECT_TRUE(FindControl<memory::CommandButton>(Times(), u"cmdForget").Press());
  EXPECT_EQ(Last(), "No query has been answered yet.");
  EXPECT_THAT(Rows(), ElementsAre());
}

TEST_F(TimingTest, ThereIsOneWindowAndAfterItsEndNothingIsLeftOfIt) {
  Open();
  const std::size_t before = Screen->Forms().size();
  Click(u"mnuTiming");
  Click(u"mnuTiming");
  EXPECT_EQ(Screen->Forms().size(), before + 1);
  EXPECT_TRUE(Times().PressKey(EscapeKey));
  EXPECT_EQ(Screen->Forms().size(), before);
  Clock.OnIdle = [] { FAIL() << "a timer goes on"; };
  LetTimePass();
  Click(u"mnuTiming");
  EXPECT_TRUE(Times().PressCloseBox());
  EXPECT_EQ(Screen->Forms().size(), before);
}

TEST_F(TimingTest, ReturnClosesAndForgetsNothing) {
  Open();
  Run(u"*IDN?\r\n");
  Click(u"mnuTiming");
  const std::size_t shown = Screen->Forms().size();
  EXPECT_TRUE(Times().PressKey(ReturnKey));
  EXPECT_EQ(Screen->Forms().size(), shown - 1);
  Click(u"mnuTiming");
  EXPECT_EQ(Rows().size(), 1U);
}

TEST_F(TimingTest, TimesStandNeitherInTheHistoryNorOnTheWire) {
  Open();
  Click(u"mnuTiming");
  Wire.clear();
  const String shown = Past().Text();
  Run(u"*IDN?\r\n");
  EXPECT_THAT(Wire, ElementsAre("write *IDN?", "read"));
  EXPECT_EQ(ToUtf8(Past().Text().substr(shown.size())), "*IDN?\r\n\u00AE1\r\n");
}

} // namespace
} // namespace portico::test
