#include "document/log/LogBench.h"

namespace portico::test {
namespace {

/// How the stamps of a log steer those that follow. The clock stands at 2004-02-09T08:05:03.
class LogStampsTest : public StoreTest {
protected:
  /// A log of one entity for each stamp.
  static std::string LogWith(std::initializer_list<const char*> stamps) {
    std::string entities;
    for (const char* stamp : stamps) entities += std::string("<X Timestamp=\"") + stamp + "\">7800</X>";
    return PlainLogOf("<Session>" + entities + "</Session>");
  }
  /// The stamp of the session that is opened in that log.
  std::string Extend(const std::string& log) {
    Disk->Put(Path, log);
    m_store = Store();
    m_store->OpenSession();
    const std::string& bytes = Bytes();
    const std::string name = "<Session SessionOpenTimeStamp=\"";
    const auto start = bytes.rfind(name) + name.size();
    return bytes.substr(start, bytes.find('"', start) - start);
  }
  void SetClock(int hour, int minute, int second) {
    Environment.Now = FakeErrorEnvironment::At(2004, 2, 9, hour, minute, second);
  }
  static std::string Draw() { return ToUtf8(gTimeStamper->TimeStamp()); }

private:
  Ref<CXMLDataStore> m_store; // with the session
};

TEST_F(LogStampsTest, ASessionInALogOfTheSameSecondGoesOnBehindItsHighest) {
  EXPECT_EQ(Extend(LogWith({"2004-02-09T08:05:03.000000040-5:00", "2004-02-09T08:05:03.000000007-5:00"})),
            "2004-02-09T08:05:03.000000041-5:00");
  EXPECT_EQ(Draw(), "2004-02-09T08:05:03.000000042-5:00");
}

TEST_F(LogStampsTest, TheStampsOfItsSessionsCountAsWell) {
  EXPECT_EQ(Extend(PlainLogOf("<Session SessionOpenTimeStamp=\"2004-02-09T08:05:03.000000007-5:00\"/>")),
            "2004-02-09T08:05:03.000000008-5:00");
  EXPECT_EQ(Extend(PlainLogOf("<Session SessionOpenTimeStamp=\"2004-02-09T08:05:02.000000007-5:00\" "
                              "SessionCloseTimeStamp=\"2004-02-09T08:05:03.000000050-5:00\"/>")),
            "2004-02-09T08:05:03.000000051-5:00");
}

TEST_F(LogStampsTest, TheNextSecondBeginsAtZero) {
  Extend(LogWith({"2004-02-09T08:05:03.000000040-5:00"}));
  SetClock(8, 5, 4);
  EXPECT_EQ(Draw(), "2004-02-09T08:05:04.000000000-5:00");
}

TEST_F(LogStampsTest, ALogOfASecondThatHasJustBegunIsGoneOnBehind) {
  for (int i = 0; i < 9; ++i) Draw(); // of the second before
  SetClock(8, 5, 4);
  EXPECT_EQ(Extend(LogWith({"2004-02-09T08:05:04.000000003-5:00"})), "2004-02-09T08:05:04.000000004-5:00");
}

TEST_F(LogStampsTest, ALogOfLaterSecondsIsGoneOnBehindUntilTheClockIsLater) {
  EXPECT_EQ(Extend(LogWith({"2004-02-09T08:05:05.000000020-5:00", "2004-02-09T08:05:04.000000030-5:00"})),
            "2004-02-09T08:05:03.000000031-5:00");
  SetClock(8, 5, 4);
  EXPECT_EQ(Draw(), "2004-02-09T08:05:04.000000032-5:00");
  SetClock(8, 5, 5);
  EXPECT_EQ(Draw(), "2004-02-09T08:05:05.000000033-5:00");
  SetClock(8, 5, 6);
  EXPECT_EQ(Draw(), "2004-02-09T08:05:06.000000000-5:00");
}

TEST_F(LogStampsTest, SecondsThatHaveGoneByRaiseNothing) {
  EXPECT_EQ(Extend(LogWith({"2004-02-09T08:05:02.000000500-5:00", "2004-02-09T08:05:03.000000002-5:00"})),
            "2004-02-09T08:05:03.000000003-5:00");
  SetClock(8, 5, 4);
  EXPECT_EQ(Draw(), "2004-02-09T08:05:04.000000000-5:00");
}

TEST_F(LogStampsTest, SecondsThatHaveGoneByCountWhenTheClockGoesBack) {
  Extend(LogWith({"2004-02-09T08:05:02.000000500-5:00"}));
  SetClock(8, 5, 2);
  EXPECT_EQ(Draw(), "2004-02-09T08:05:02.000000501-5:00");
  SetClock(8, 5, 3);
  EXPECT_EQ(Draw(), "2004-02-09T08:05:03.000000502-5:00");
}

TEST_F(LogStampsTest, ForeignAndOverlongStampsAreIgnored) {
  EXPECT_EQ(Extend(LogWith({"2004-02-09T08:05:03.0000000040-5:00", "2004-02-09T08:05:03.99999999999999999999-5:00",
                            "2004-02-09T08:05:03.000000041", "2004-02-09 08:05:03.000000042-5:00",
                            "2004-02-09T08:05:03.000000043-6:00", "2004-02-09T08:05:03.00000044-5:00",
                            "2004-02-09T08:05:03.+00000045-5:00", "2004-2-09T08:05:03.0000000046-5:00",
                            "12004-02-09T08:05:03.000000047-5:00", "2004-02-09T08:05:03.000000048-5:00 ", "stamp"})),
            "2004-02-09T08:05:03.000000001-5:00");
}

TEST_F(LogStampsTest, TheHighestOfNineDigitsIsGoneOnBehind) {
  EXPECT_EQ(Extend(LogWith({"2004-02-09T08:05:03.999999999-5:00"})), "2004-02-09T08:05:03.1000000000-5:00");
}

TEST_F(LogStampsTest, ViewingALogRaisesNothing) {
  Disk->Put(Path, LogWith({"2004-02-09T08:05:03.000000040-5:00"}));
  Read(Store());
  EXPECT_EQ(Draw(), "2004-02-09T08:05:03.000000002-5:00"); // one was drawn for the entity
}

TEST_F(LogStampsTest, OnlyOpeningASessionRaises) {
  Disk->Put(Path, LogWith({"2004-02-09T08:05:03.000000040-5:00"}));
  const auto store = Store();
  EXPECT_EQ(Draw(), "2004-02-09T08:05:03.000000001-5:00");
  store->OpenSession();
  EXPECT_EQ(Draw(), "2004-02-09T08:05:03.000000042-5:00");
}

TEST_F(LogStampsTest, ALogThatIsOverwrittenRaisesNothing) {
  Disk->Put(Path, LogWith({"2004-02-09T08:05:03.000000040-5:00"}));
  Store(true)->OpenSession();
  EXPECT_NE(Bytes().find("2004-02-09T08:05:03.000000001-5:00"), std::string::npos);
}

TEST_F(LogStampsTest, AStoreThatIsInitializedAgainForgetsTheOtherLog) {
  Disk->Put(Path, LogWith({"2004-02-09T08:05:03.000000040-5:00"}));
  const auto store = Store();
  store->Initialize(u"other.xml", false);
  store->OpenSession();
  EXPECT_NE(Disk->Bytes("other.xml").find("2004-02-09T08:05:03.000000001-5:00"), std::string::npos);
}

/// What several runs in one second write into one log.
TEST_F(LogStampsTest, RunsInOneSecondMakeALogThatCanBeRead) {
  std::vector<std::string> expected;
  for (const char16_t* text : {u"1", u"2", u"3", u"4"}) {
    gTimeStamper = New<CMockTimeStampServer>();
    auto store = Store();
    store->OpenSession();
    Append(store, text);
    store->CloseSession();
    expected.push_back(ToUtf8(text));
  }
  EXPECT_EQ(Read(Store()), expected);
}

} // namespace
} // namespace portico::test
