#include "document/log/LogBench.h"

#include <cerrno>
#include <limits>

namespace portico::test {
namespace {

using Texts = std::vector<std::string>;

/// Whether a log holds all that was to be saved.
class XMLDataStoreUnwrittenTest : public LoggingTest {
protected:
  static constexpr std::size_t NoLimit = std::numeric_limits<std::size_t>::max();
};

TEST_F(XMLDataStoreUnwrittenTest, NothingIsWhileSavesSucceed) {
  EXPECT_FALSE(New<CXMLDataStore>(Disk)->IsAnythingUnwritten());
  const auto store = Logging();
  EXPECT_FALSE(store->IsAnythingUnwritten());
  store->CloseSession();
  EXPECT_FALSE(store->IsAnythingUnwritten());
}

TEST_F(XMLDataStoreUnwrittenTest, AnEntityIsUntilASaveCarriesIt) {
  const auto store = Logging();
  Disk->Capacity = Bytes().size();
  EXPECT_EQ(Raised([&] { Append(store, u"2"); }).Number, 75);
  EXPECT_TRUE(store->IsAnythingUnwritten());
  Disk->Capacity = NoLimit;
  Append(store, u"3");
  EXPECT_FALSE(store->IsAnythingUnwritten());
}

TEST_F(XMLDataStoreUnwrittenTest, ASessionIsThatCouldNotBeOpened) {
  const auto store = Store();
  Disk->Capacity = Bytes().size();
  EXPECT_EQ(Raised([&] { store->OpenSession(); }).Number, 75);
  EXPECT_TRUE(store->IsAnythingUnwritten());
}

TEST_F(XMLDataStoreUnwrittenTest, ACloseStampIsThatCouldNotBeSet) {
  const auto store = Logging();
  Disk->OpenFault = EACCES;
  EXPECT_EQ(Raised([&] { store->CloseSession(); }).Number, 75);
  EXPECT_TRUE(store->IsAnythingUnwritten());
  Disk->OpenFault = 0;
  store->CloseSession();
  EXPECT_FALSE(store->IsAnythingUnwritten());
}

TEST_F(XMLDataStoreUnwrittenTest, WhatALogNeverHoldsDoesNotCount) {
  const auto store = Logging();
  EXPECT_EQ(Raised([&] { store->AppendDataEntityToStore({}); }).Number, 5);
  EXPECT_EQ(Raised([&] { Append(store, u"2", u""); }).Number, 31004);
  EXPECT_FALSE(store->IsAnythingUnwritten());
}

TEST_F(XMLDataStoreUnwrittenTest, AReadingChangesNothingOfIt) {
  const auto store = Logging();
  Disk->Capacity = Bytes().size();
  EXPECT_EQ(Raised([&] { Append(store, u"2"); }).Number, 75);
  Read(store);
  EXPECT_TRUE(store->IsAnythingUnwritten());
}

/// The disk takes the bytes, fails when the file is closed, and lets nothing be undone.
TEST_F(XMLDataStoreUnwrittenTest, AReadingBehindACloseThatFailsHasEachEntityOnce) {
  const auto store = Logging();
  Disk->CloseFault = ENOSPC;
  Disk->TruncateFault = EBADF;
  EXPECT_EQ(Raised([&] { Append(store, u"2"); }).Number, 75);
  EXPECT_EQ(Read(store), (Texts{"1", "2"}));
  Disk->CloseFault = 0;
  Disk->TruncateFault = 0;
  store->OpenSession();
  Append(store, u"3");
  EXPECT_EQ(Read(store), (Texts{"1", "2", "3"}));
}

TEST_F(XMLDataStoreUnwrittenTest, AReadingHasEachEntityOnceWhereverASaveWasCut) {
  for (std::size_t room = 0; room < 200; ++room) {
    Disk = std::make_shared<MemoryLogDisk>();
    const auto store = Logging();
    Disk->OpenFault = EACCES;
    EXPECT_EQ(Raised([&] { Append(store, u"2"); }).Number, 75);
    Disk->OpenFault = 0;
    Disk->Capacity = Bytes().size() + room;
    Disk->TruncateFault = EBADF;
    EXPECT_EQ(Raised([&] { Append(store, u"3"); }).Number, 75);
    const std::string before = Bytes();
    EXPECT_EQ(Read(store), (Texts{"1", "2", "3"})) << before;
    EXPECT_EQ(Bytes(), before);
  }
}

} // namespace
} // namespace portico::test
