#include "document/LogWatch.h"

#include "LogBench.h"
#include "framework/ErrorNumbers.h"

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
  void EntityRead() override { m_journal.push_back(m_name + "entity"); }

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

TEST_F(LogWatchTest, ALogThatIsNotThereIsNotToldOf) {
  const auto store = Store();
  Disk->Remove(kPath);
  const LogWatch watch(&Watching);
  EXPECT_EQ(Raised([&] { store->FillDataContainerFromStore(); }).Number, 31037);
  EXPECT_EQ(Told, List{});
}

} // namespace
} // namespace portico::test
