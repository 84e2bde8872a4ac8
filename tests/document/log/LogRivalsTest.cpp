#include "document/log/LogBench.h"

#include <algorithm>
#include <cerrno>
#include <limits>

namespace portico::test {
namespace {

using Texts = std::vector<std::string>;

/// Two programs on one log, each with stamps of its own, while the clock stands still.
class LogRivalsTest : public StoreTest {
protected:
  /// One of them.
  class Program {
  public:
    explicit Program(const std::shared_ptr<MemoryLogDisk>& disk) : m_store(New<CXMLDataStore>(disk)) {
      m_store->SaveFailed.Connect([this](StringView text) { Failures.push_back(ToUtf8(text)); });
      Do([&] { m_store->Initialize(u"conversation.xml", false); });
    }
    void Open() {
      Do([&] { m_store->OpenSession(); });
    }
    void Close() {
      Do([&] { m_store->CloseSession(); });
    }
    void Log(StringView text) {
      Do([&] { Append(m_store, text); });
    }
    /// A stamp that goes into no log.
    void Draw() {
      Do([] { gTimeStamper->TimeStamp(); });
    }
    bool HasUnwritten() const { return m_store->IsAnythingUnwritten(); }

    Texts Failures;

  private:
    template <class Action>
    void Do(Action action) {
      const auto before = std::exchange(gTimeStamper, m_stamper);
      try {
        action();
      } catch (...) {
        gTimeStamper = before;
        throw;
      }
      gTimeStamper = before;
    }

    Ref<ITimeStamp> m_stamper = New<CMockTimeStampServer>();
    Ref<CXMLDataStore> m_store;
  };

  /// What the tags of the sessions bear, in order.
  Texts Sessions() {
    Texts sessions;
    for (const std::string& line : Tell(Bytes())) {
      if (line.rfind("session ", 0) == 0) sessions.push_back(line.substr(8));
    }
    return sessions;
  }

  static constexpr char16_t Taken[] =
      u"The file, conversation.xml, has been written by another program at the same time.";
  Program One{Disk};
  Program Other{Disk};
};

TEST_F(LogRivalsTest, AnEntityWhoseStampStandsThereIsGivenUp) {
  One.Open(); // its own stamp is 1
  Other.Open();
  One.Log(u"one 2");
  const ErrorRecord error = Raised([&] { Other.Log(u"other 2"); });
  ExpectError(error, 75, Taken);
  ExpectTrail(error, {u"CXMLDataStore.AppendDataEntity(DataEntity)",
                      u"CXMLDataStore.IDataStore_AppendDataEntityToStore(DataEntity)"});
  EXPECT_EQ(Other.Failures, Texts{ToUtf8(Taken)});
  Other.Log(u"other 3");
  EXPECT_EQ(Read(Store()), (Texts{"one 2", "other 3"}));
}

TEST_F(LogRivalsTest, WhatWasGivenUpCountsAsUnwrittenForEver) {
  One.Open();
  Other.Open();
  One.Log(u"one");
  EXPECT_EQ(Raised([&] { Other.Log(u"other"); }).Number, 75);
  EXPECT_TRUE(Other.HasUnwritten());
  Other.Log(u"other again");
  Other.Close();
  EXPECT_TRUE(Other.HasUnwritten());
  EXPECT_FALSE(One.HasUnwritten());
}

TEST_F(LogRivalsTest, TheNextStampsDifferFromThoseOfOthers) {
  Other.Open();
  Other.Log(u"other 2");
  One.Open(); // takes up 2
  for (int i = 3; i < 9; ++i) One.Log(u"one " + ToText(std::int64_t{i}));
  Other.Draw(); // 3
  EXPECT_EQ(Raised([&] { Other.Log(u"other 4"); }).Number, 75);
  Other.Log(u"other 9");
  const auto entity = Cast<CDataFIFO>(Store()->FillDataContainerFromStore());
  while (entity->Count() > 1) entity->Dequeue();
  EXPECT_EQ(entity->Peek()->TimeStamp(), u"2004-02-09T08:05:03.000000009-5:00");
}

TEST_F(LogRivalsTest, WhatIsBehindAndBeforeAnEntityThatIsGivenUpGoesOut) {
  One.Open();
  Other.Open();
  Disk->OpenFault = EACCES;
  for (const char16_t* text : {u"other 2", u"other 3", u"other 4"}) {
    EXPECT_EQ(Raised([&] { Other.Log(text); }).Number, 75);
  }
  Disk->OpenFault = 0;
  One.Draw();
  One.Log(u"one 3");
  ExpectError(Raised([&] { Other.Log(u"other 5"); }), 75, Taken);
  EXPECT_EQ(Read(Store()), (Texts{"one 3", "other 2", "other 4", "other 5"}));
  Other.Log(u"other 6");
  EXPECT_EQ(Other.Failures.back(), ToUtf8(Taken));
  EXPECT_EQ(Other.Failures.size(), 4U);
}

TEST_F(LogRivalsTest, ADiskThatIsFullWhenAnEntityIsGivenUpIsToldFirst) {
  One.Open();
  Other.Open();
  One.Draw();
  One.Log(u"one 3");
  Disk->OpenFault = EACCES;
  EXPECT_EQ(Raised([&] { Other.Log(u"other 2"); }).Number, 75);
  EXPECT_EQ(Raised([&] { Other.Log(u"other 3"); }).Number, 75);
  Disk->OpenFault = 0;
  Disk->Capacity = Bytes().size();
  ExpectError(Raised([&] { Other.Log(u"other 4"); }), 75,
              u"The file, conversation.xml, cannot be written: No space left on device.");
  Disk->Capacity = std::numeric_limits<std::size_t>::max();
  ExpectError(Raised([&] { Other.Log(u"other 5"); }), 75, Taken);
  Other.Log(u"other 6");
  EXPECT_EQ(Read(Store()), (Texts{"one 3", "other 2", "other 4", "other 5", "other 6"}));
}

TEST_F(LogRivalsTest, AnEntityThatIsGivenUpLeavesNoEmptySession) {
  One.Open();
  Other.Open();
  One.Log(u"one 2");
  const std::string before = Bytes();
  EXPECT_EQ(Raised([&] { Other.Log(u"other 2"); }).Number, 75);
  EXPECT_EQ(Bytes(), before);
  const std::size_t sessions = Sessions().size();
  Other.Close();
  EXPECT_EQ(Sessions().size(), sessions);
  Other.Open(); // behind the others, and not in one of its own
  Other.Log(u"other");
  EXPECT_EQ(Sessions().size(), sessions + 1);
  EXPECT_EQ(Read(Store()), (Texts{"one 2", "other"}));
}

TEST_F(LogRivalsTest, ASessionThatHasLostAllThatWasToComeIsClosedInItsPlace) {
  One.Open();
  Other.Open();
  Disk->OpenFault = EACCES;
  EXPECT_EQ(Raised([&] { Other.Log(u"other 2"); }).Number, 75);
  EXPECT_EQ(Raised([&] { Other.Close(); }).Number, 75);
  Disk->OpenFault = 0;
  One.Log(u"one 2");
  ExpectError(Raised([&] { Other.Close(); }), 75, Taken);
  EXPECT_EQ(Read(Store()), Texts{"one 2"});
  EXPECT_EQ(Sessions(), (Texts{"SessionOpenTimeStamp=2004-02-09T08:05:03.000000001-5:00",
                               "SessionOpenTimeStamp=2004-02-09T08:05:03.000000001-5:00 "
                               "SessionCloseTimeStamp=2004-02-09T08:05:03.000000004-5:00",
                               "SessionOpenTimeStamp=2004-02-09T08:05:03.000000001-5:00"}));
}

TEST_F(LogRivalsTest, AFileThatIsNoLogAnyMoreTakesNothing) {
  One.Open();
  One.Log(u"one");
  Disk->Put(Path, "notes");
  EXPECT_EQ(Raised([&] { One.Log(u"two"); }).Number, 31037);
  EXPECT_TRUE(One.HasUnwritten());
}

TEST_F(LogRivalsTest, ACloseStampGoesWhereTheSessionStands) {
  One.Open();
  One.Log(u"one");
  Other.Open();
  Other.Log(u"other");
  One.Close();
  EXPECT_EQ(Sessions(), (Texts{"SessionOpenTimeStamp=2004-02-09T08:05:03.000000001-5:00 "
                               "SessionCloseTimeStamp=2004-02-09T08:05:03.000000003-5:00",
                               "SessionOpenTimeStamp=2004-02-09T08:05:03.000000001-5:00"}));
  Other.Log(u"more"); // the file has the length and the end that it had
  EXPECT_EQ(Read(Store()), (Texts{"one", "other", "more"}));
  EXPECT_EQ(Sessions().size(), 2U);
}

TEST_F(LogRivalsTest, ACloseStampGoesWhereTheSessionGoesOn) {
  One.Open();
  Other.Open();
  One.Draw();
  One.Draw();
  One.Log(u"one");
  One.Close();
  const Texts sessions = Sessions();
  ASSERT_EQ(sessions.size(), 3U);
  EXPECT_EQ(sessions[0], "SessionOpenTimeStamp=2004-02-09T08:05:03.000000001-5:00");
  EXPECT_EQ(sessions[2].find("SessionOpenTimeStamp=2004-02-09T08:05:03.000000001-5:00 SessionCloseTimeStamp="), 0U);
}

TEST_F(LogRivalsTest, WhatIsStillToBeSavedAndTheCloseStampFindTheirPlaces) {
  One.Open();
  Disk->Capacity = Bytes().size();
  EXPECT_EQ(Raised([&] { One.Log(u"one 2"); }).Number, 75);
  EXPECT_EQ(Raised([&] { One.Close(); }).Number, 75);
  Disk->Capacity = std::numeric_limits<std::size_t>::max();
  Other.Open();
  One.Close();
  EXPECT_EQ(Read(Store()), Texts{"one 2"});
  const Texts sessions = Sessions();
  ASSERT_EQ(sessions.size(), 3U);
  for (const std::size_t part : {0U, 2U}) {
    EXPECT_NE(sessions[part].find("SessionOpenTimeStamp=2004-02-09T08:05:03.000000001-5:00 SessionCloseTimeStamp="),
              std::string::npos)
        << sessions[part];
  }
}

TEST_F(LogRivalsTest, ASessionThatIsOpenedBehindAClosedOneOfOthersIsItsOwn) {
  One.Open();
  Other.Open();
  One.Close();
  One.Open();
  One.Log(u"one");
  EXPECT_EQ(Sessions().size(), 3U);
  EXPECT_EQ(Read(Store()), Texts{"one"});
}

TEST_F(LogRivalsTest, ASessionOfALogThatWasEditedIsClosedInIt) {
  One.Open();
  One.Log(u"one");
  Bytes() += "<!-- behind -->";
  One.Close();
  EXPECT_EQ(Sessions().size(), 1U);
  EXPECT_NE(Bytes().find("SessionCloseTimeStamp"), std::string::npos);
  EXPECT_NE(Bytes().find("</SCPICommLog>\n<!-- behind -->"), std::string::npos);
  One.Open();
  EXPECT_EQ(Sessions().size(), 2U);
}

TEST_F(LogRivalsTest, ACloseStampIsKeptWhenTheLogIsRewritten) {
  for (const bool isTorn : {false, true}) {
    Disk = std::make_shared<MemoryLogDisk>();
    Program one(Disk);
    one.Open();
    Disk->OpenFault = EACCES;
    EXPECT_EQ(Raised([&] { one.Close(); }).Number, 75);
    EXPECT_EQ(Raised([&] { one.Log(u"one"); }).Number, 75);
    Disk->OpenFault = 0;
    if (isTorn) { // as the writing of another stamp leaves it that is cut
      const std::string piece = " SessionCloseTimeSt";
      Bytes().replace(Bytes().find("                    "), piece.size(), piece);
    }
    Bytes() += "<!-- behind -->";
    one.Log(u"more");
    EXPECT_EQ(Sessions().size(), 2U);
    EXPECT_NE(Sessions()[0].find("SessionCloseTimeStamp="), std::string::npos) << Bytes();
    EXPECT_EQ(Read(Store()), (Texts{"one", "more"}));
  }
}

TEST_F(LogRivalsTest, NoOrderOfTheirStepsMakesALogThatCannotBeRead) {
  for (unsigned order = 0; order < 1U << 8; ++order) {
    Disk = std::make_shared<MemoryLogDisk>();
    Program one(Disk);
    Program other(Disk);
    one.Open();
    other.Open();
    std::size_t saved = 0;
    for (unsigned step = 0; step < 8; ++step) {
      try {
        ((order >> step & 1U) != 0 ? one : other).Log(u"x");
        ++saved;
      } catch (const Error&) { // given up
      }
    }
    one.Close();
    other.Close();
    ASSERT_EQ(Read(Store()).size(), saved) << order;
  }
}

} // namespace
} // namespace portico::test
