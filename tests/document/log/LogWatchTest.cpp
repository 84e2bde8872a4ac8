#include "document/log/LogWatch.h"

#include "document/log/LogBench.h"
#include "framework/errors/ErrorNumbers.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <sstream>

namespace portico::test {
namespace {

/// Writes down what it is told.
class Watcher final : public ILogWatcher {
public:
  explicit Watcher(std::vector<std::string>& journal, std::string name = {})
      : m_journal(journal), m_name(std::move(name)) {}
  void BytesRead(std::uint64_t done, std::uint64_t total) override {
    const bool isEdge = done == 0 || done == total;
    if (isEdge || TellsAll) m_journal.push_back(m_name + std::to_string(done) + " of " + std::to_string(total));
    if (OnBytes) OnBytes();
  }
  void EntityRead(const LogElement& /*entity*/) override { m_journal.push_back(m_name + "entity"); }
  void EndIsMissing(const LogReading& reading) override {
    m_journal.push_back(m_name + "no end " + (reading.InSession ? "in " : "behind ") +
                        std::to_string(reading.Sessions) + ", " + reading.LastOpenStamp);
  }

  std::function<void()> OnBytes;
  bool TellsAll = false; ///< places in the middle, too: in which pieces a file is read is the reader's affair

private:
  std::vector<std::string>& m_journal;
  std::string m_name;
};

class LogWatchTest : public StoreTest {
protected:
  LogWatchTest() {
    const auto store = Store();
    store->OpenSession();
    Append(store, u"one");
    Append(store, u"two");
    store->CloseSession();
  }
  std::vector<std::string> Take() { return std::exchange(Told, {}); }
  std::string OfAll(std::size_t done) { return std::to_string(done) + " of " + std::to_string(Bytes().size()); }

  using List = std::vector<std::string>;
  List Told;
  Watcher Watching{Told};
};

TEST_F(LogWatchTest, NobodyIsToldOfAReadingWithoutAWatch) {
  { const LogWatch watch(&Watching); }
  Read(Store());
  EXPECT_EQ(Told, List{});
}

TEST_F(LogWatchTest, TheCheckOfAStoreIsAPassWithoutEntities) {
  const LogWatch watch(&Watching);
  Store();
  EXPECT_EQ(Take(), (List{OfAll(0), OfAll(Bytes().size())}));
}

TEST_F(LogWatchTest, FillingAContainerIsAPassWithEachEntity) {
  const auto store = Store();
  const LogWatch watch(&Watching);
  EXPECT_EQ(Read(store), (List{"one", "two"}));
  EXPECT_EQ(Take(), (List{OfAll(0), "entity", "entity", OfAll(Bytes().size())}));
}

TEST_F(LogWatchTest, ALongLogIsToldOfInPieces) {
  const auto store = Store();
  store->OpenSession();
  Append(store, String(200'000, u'x'));
  store->CloseSession();
  Watching.TellsAll = true;
  const LogWatch watch(&Watching);
  Store();
  const auto told = Take();
  ASSERT_GT(told.size(), 3U);
  std::vector<std::uint64_t> places(told.size());
  for (std::size_t i = 0; i < told.size(); ++i) std::istringstream(told[i]) >> places[i];
  EXPECT_TRUE(std::is_sorted(places.begin(), places.end()));
  EXPECT_EQ(places.front(), 0U);
  EXPECT_EQ(places.back(), Bytes().size());
}

TEST_F(LogWatchTest, WhatAWatcherThrowsEndsTheReadingAndReachesItsCaller) {
  const auto store = Store();
  const LogWatch watch(&Watching);
  Watching.OnBytes = [] { HuntERR::Raise(ErrorNumber::WorkGivenUp, u"Watcher", u"Given up."); };
  const ErrorRecord error = Raised([&] { store->FillDataContainerFromStore(); });
  EXPECT_EQ(error.Number, Hex(0x80041065));
  EXPECT_EQ(error.Description.Text(), u"Given up."); // without a report
  EXPECT_EQ(Take(), (List{OfAll(0)}));
  Watching.OnBytes = {};
  EXPECT_EQ(Read(store), (List{"one", "two"}));
}

TEST_F(LogWatchTest, TheLastWatchCountsUntilItIsGivenUp) {
  Watcher other(Told, "other ");
  const LogWatch watch(&Watching);
  {
    const LogWatch inner(&other);
    Store();
  }
  EXPECT_EQ(Take(), (List{"other " + OfAll(0), "other " + OfAll(Bytes().size())}));
  Store();
  EXPECT_EQ(Take().size(), 2U);
}

TEST_F(LogWatchTest, AWatcherIsNotToldOfWhatItReadsItself) {
  const auto store = Store();
  const LogWatch watch(&Watching);
  Watching.OnBytes = [&] { EXPECT_EQ(Read(Store()), (List{"one", "two"})); };
  Read(store);
  EXPECT_EQ(Take(), (List{OfAll(0), "entity", "entity", OfAll(Bytes().size())}));
}

TEST_F(LogWatchTest, AWatcherThatReadsMayWatchItself) {
  Watcher other(Told, "other ");
  const auto store = Store();
  const LogWatch watch(&Watching);
  Watching.OnBytes = [&] {
    const LogWatch inner(&other);
    Read(store);
    Watching.OnBytes = {};
  };
  Store();
  EXPECT_EQ(Take(), (List{OfAll(0), "other " + OfAll(0), "other entity", "other entity",
                          "other " + OfAll(Bytes().size()), OfAll(Bytes().size())}));
}

/// A log that has been cut off behind a text of its.
class TornLogWatchTest : public LogWatchTest {
protected:
  void CutBehind(const std::string& text) { Bytes().resize(Bytes().find(text) + text.size()); }
  /// What is told of a filling, but for how far it is.
  List ToldOfFilling() {
    const auto store = Store();
    {
      const LogWatch watch(&Watching);
      Read(store);
    }
    auto told = Take();
    told.erase(std::remove_if(told.begin(), told.end(),
                              [](const std::string& line) { return line.find(" of ") != std::string::npos; }),
               told.end());
    return told;
  }
};

TEST_F(TornLogWatchTest, IsToldOfBehindWhatIsWhole) {
  CutBehind("]]></Response>\n<Resp");
  EXPECT_EQ(ToldOfFilling(), (List{"entity", "no end in 1, 2004-02-09T08:05:03.000000001-5:00"}));
}

TEST_F(TornLogWatchTest, TellsOfTheSessionBehindWhichItEnds) {
  CutBehind("</Session>");
  EXPECT_EQ(ToldOfFilling(), (List{"entity", "entity", "no end behind 1, 2004-02-09T08:05:03.000000001-5:00"}));
  const auto store = Store();
  store->OpenSession();
  CutBehind("\n</Session>\n<Session SessionOpenTimeStamp=\"2004-");
  EXPECT_EQ(ToldOfFilling().back(), "no end behind 1, 2004-02-09T08:05:03.000000001-5:00");
}

TEST_F(TornLogWatchTest, TellsOfALogThatHasNoSessionLeft) {
  CutBehind(LogHeader);
  EXPECT_EQ(ToldOfFilling(), List{"no end behind 0, "});
}

TEST_F(TornLogWatchTest, IsNotToldOfIfTheLockShowsItWhole) {
  const std::string whole = Bytes();
  CutBehind("]]></Response>\n<Resp");
  Disk->BeforeLockedRead = [&] { Bytes() = whole; };
  EXPECT_EQ(ToldOfFilling(), List{"entity"});
}

TEST_F(TornLogWatchTest, IsNotToldOfIfItCannotBeLocked) {
  CutBehind("</Session>");
  Disk->LockFault = EWOULDBLOCK;
  EXPECT_EQ(ToldOfFilling(), (List{"entity", "entity"}));
  Disk->LockFault = 0;
  Disk->BeforeLockedRead = [this] { Disk->Remove(Path); };
  EXPECT_EQ(ToldOfFilling(), (List{"entity", "entity"}));
}

TEST_F(TornLogWatchTest, AWholeLogIsNotLookedAtAgain) {
  Disk->BeforeLockedRead = [] { ADD_FAILURE() << "locked"; };
  EXPECT_EQ(ToldOfFilling(), (List{"entity", "entity"}));
}

TEST_F(TornLogWatchTest, TheCheckOfAStoreTellsNothing) {
  CutBehind("</Session>");
  const LogWatch watch(&Watching);
  Store();
  EXPECT_EQ(Take(), (List{OfAll(0), OfAll(Bytes().size())}));
}

TEST_F(LogWatchTest, ALogThatIsNotThereIsNotToldOf) {
  const auto store = Store();
  Disk->Remove(Path);
  const LogWatch watch(&Watching);
  EXPECT_EQ(Raised([&] { store->FillDataContainerFromStore(); }).Number, 31037);
  EXPECT_EQ(Told, List{});
}

} // namespace
} // namespace portico::test
