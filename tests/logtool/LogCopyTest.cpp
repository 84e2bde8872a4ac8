#include "logtool/Logs.h"
#include "support/Files.h"

#include <gtest/gtest.h>

namespace portico::logtool {
namespace {

const std::string Front = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<SCPICommLog>\n"
                          "<Header ApplicationName=\"Tolvane Portico\" ApplicationVersion=\"1.0.5\"/>";
const std::string Back = "\n</SCPICommLog>\n";

std::string Opened(const std::string& stamp) {
  return "\n<Session SessionOpenTimeStamp=\"" + stamp + "\"" + std::string(80, ' ') + ">";
}
std::string Stamped(const std::string& stamp, const std::string& text) {
  return "\n<Response DataType=\"Response\" Timestamp=\"" + stamp + "\" DataFormat=\"String\"><![CDATA[" + text +
         "]]></Response>";
}
std::string Stamp(const std::string& second, const std::string& number) {
  return "2004-11-01T16:42:" + second + "." + number + "-5:00";
}
const std::string Closed = "\n</Session>";

Result Cut(const LogSelection& selection, const std::string& log) {
  return RunOn({.Wanted = Output::Part, .Files = {"-"}, .Selection = selection}, log);
}

TEST(LogCopyTest, ALogIsCopiedWithAllThatIsInIt) {
  const std::string log =
      Front +
      "\n<Session SessionOpenTimeStamp=\"a&quot;\" SessionCloseTimeStamp=\"2004-11-01T16:42:15.000000000-5:00\"" +
      std::string(80 - 59, ' ') + ">" +
      "\n<Instruction DataType=\"Instruction\" Timestamp=\"t1\" Mine=\"&#10;&lt;\"><![CDATA[2A00]]></Instruction>"
      "\n<Odd Timestamp=\"t2\"><![CDATA[]]></Odd>" +
      Stamped("t3", "]]]]><![CDATA[>\xC3\xA9]]>&#13;<![CDATA[") + Closed + Back;
  const auto result = Cut({}, log);
  EXPECT_EQ(result.Out, log);
  EXPECT_EQ(result.Err, "");
  EXPECT_EQ(result.Status, 0);
  EXPECT_EQ(Cut({}, result.Out).Out, log);
}

TEST(LogCopyTest, OneSessionCanBeWanted) {
  const std::string log = Front + Opened("a") + Stamped("1", "x") + Closed + Opened("b") + Closed + Opened("c") +
                          Stamped("3", "z") + Closed + Back;
  EXPECT_EQ(Cut({.Session = 1}, log).Out, Front + Opened("a") + Stamped("1", "x") + Closed + Back);
  EXPECT_EQ(Cut({.Session = 2}, log).Out, Front + Opened("b") + Closed + Back);
  EXPECT_EQ(Cut({.Session = 3}, log).Out, Front + Opened("c") + Stamped("3", "z") + Closed + Back);
  EXPECT_EQ(Cut({.Session = 4}, log).Out, Front + Back);
}

TEST(LogCopyTest, TimesAreWantedAsFarAsTheyAreTold) {
  const std::string one = Stamped(Stamp("10", "000000005"), "1");
  const std::string two = Stamped(Stamp("11", "000000000"), "2");
  const std::string three = Stamped(Stamp("12", "000000000"), "3");
  const std::string log = Front + Opened("a") + one + two + three + Closed + Back;
  const auto cut = [&](const std::string& from, const std::string& to) {
    return Cut({.From = from, .To = to}, log).Out;
  };
  const auto of = [&](const std::string& entities) { return Front + Opened("a") + entities + Closed + Back; };
  EXPECT_EQ(cut("2004-11-01T16:42:11", ""), of(two + three));
  EXPECT_EQ(cut("", "2004-11-01T16:42:11"), of(one + two));
  EXPECT_EQ(cut("2004-11-01T16:42:10", "2004-11-01T16:42:10"), of(one));
  EXPECT_EQ(cut("2004-11-01T16:42", "2004-11-01T16:42"), of(one + two + three));
  EXPECT_EQ(cut("2004-11-01", ""), of(one + two + three));
  EXPECT_EQ(cut("2004-11-02", ""), Front + Back) << "a session of which nothing is wanted is left out";
}

TEST(LogCopyTest, LogsAreMergedOneAfterTheOther) {
  const test::TemporaryFolder folder;
  folder.Write("a", Front + Opened("a") + Stamped(Stamp("10", "000000000"), "1") + Closed + Back);
  const std::string second = Front + Opened("b") + Stamped(Stamp("11", "000000000"), "2") + Closed + Back;
  const auto result = RunOn(Output::Merged, second, {folder.At("a"), "-"});
  EXPECT_EQ(result.Out, Front + Opened("a") + Stamped(Stamp("10", "000000000"), "1") + Closed + Opened("b") +
                            Stamped(Stamp("11", "000000000"), "2") + Closed + Back);
}

TEST(LogCopyTest, CollidingStampsAreCountedOn) {
  const test::TemporaryFolder folder;
  folder.Write("a", Front + Opened("a") + Stamped(Stamp("10", "000000000"), "1") +
                        Stamped(Stamp("10", "000000007"), "2") + Closed + Back);
  const std::string second = Front + Opened("b") + Stamped(Stamp("10", "000000000"), "3") +
                             Stamped(Stamp("10", "000000001"), "4") + Stamped(Stamp("10", "999999999"), "5") +
                             Stamped(Stamp("10", "999999999"), "6") + Stamped(Stamp("11", "000000000"), "7") + Closed +
                             Back;
  const auto result = RunOn(Output::Merged, second, {folder.At("a"), "-"});
  EXPECT_EQ(result.Out, Front + Opened("a") + Stamped(Stamp("10", "000000000"), "1") +
                            Stamped(Stamp("10", "000000007"), "2") + Closed + Opened("b") +
                            Stamped(Stamp("10", "000000008"), "3") + Stamped(Stamp("10", "000000009"), "4") +
                            Stamped(Stamp("10", "999999999"), "5") + Stamped(Stamp("10", "1000000000"), "6") +
                            Stamped(Stamp("11", "000000000"), "7") + Closed + Back);
}

TEST(LogCopyTest, StampsOfAnotherFormStay) {
  const std::string log = Front + Opened("a") + Stamped("x", "1") + Stamped("x", "2") +
                          Stamped("2004-11-01T16:42:10.x-5:00", "3") + Stamped("2004-11-01T16:42:10.-1-5:00", "4") +
                          Stamped("2004-11-01T16:42:10", "5") + Closed + Back;
  EXPECT_EQ(Cut({}, log).Out, log);
}

TEST(LogCopyTest, OfATornLogWhatIsThereIsALog) {
  const std::string start = Front + Opened("a") + Stamped("1", "x");
  const auto result = Cut({}, start + "\n<Resp");
  EXPECT_EQ(result.Out, start + Closed + Back);
  EXPECT_EQ(result.Status, 1);
  EXPECT_NE(result.Err.find("its end is missing"), std::string::npos);
}

TEST(LogCopyTest, ACloseStampThatIsTooLongForItsRoomStays) {
  const std::string tag =
      "\n<Session SessionOpenTimeStamp=\"a\" SessionCloseTimeStamp=\"" + std::string(90, 'x') + "\">";
  EXPECT_EQ(Cut({}, Front + tag + Closed + Back).Out, Front + tag + Closed + Back);
}

TEST(LogCopyTest, ATimeIsTheBeginningOfAStamp) {
  for (const char* time :
       {"2004-11-01", "2004-11-01T16", "2004-11-01T16:4", "2004-11-01T16:42", "2004-11-01T16:42:09"}) {
    EXPECT_TRUE(IsTime(time)) << time;
  }
  for (const char* none : {"", "2004", "2004-11-0", "2004-11-01T", "2004-11-01T16:", "2004-11-01 16:42",
                           "2004-11-01T16:42:09.0", "x004-11-01"}) {
    EXPECT_FALSE(IsTime(none)) << none;
  }
}

} // namespace
} // namespace portico::logtool
