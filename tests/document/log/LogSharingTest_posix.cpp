#include "document/log/LogBench.h"
#include "support/Files.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

namespace portico::test {
namespace {

/// A log that several programs use at once.
class LogSharingTest : public DocumentTest {
protected:
  Ref<CXMLDataStore> Store() const {
    auto store = New<CXMLDataStore>();
    store->Initialize(FromUtf8(m_path).Text, false);
    return store;
  }
  std::string Bytes() const { return ReadFile(m_path); }
  /// A process that logs that many entities, while its clock stands at that hour. Its exit status is how many of them
  /// it has given up because the other has written at the same time, or 255 if anything else has failed.
  pid_t Writer(int entities, int hour = 8) {
    const pid_t child = fork();
    if (child != 0) return child;
    Environment.Now.tm_hour = hour;
    int lost = 0;
    try {
      const auto store = Store();
      store->SaveFailed.Connect([&](StringView text) {
        if (text.find(u"has been written by another program at the same time") == StringView::npos) std::_Exit(255);
        ++lost;
      });
      store->OpenSession();
      for (int i = 0; i < entities; ++i) {
        try {
          store->AppendDataEntityToStore(Entity(u"1"));
        } catch (const Error&) { // counted
        }
      }
      store->CloseSession();
    } catch (...) {
      std::_Exit(255);
    }
    std::_Exit(lost);
  }
  /// How many entities a store reads.
  std::int32_t CountRead() const { return Cast<CDataFIFO>(Store()->FillDataContainerFromStore())->Count(); }
  static std::size_t Whole(const LogReader::Source& source, std::string& buffer) {
    std::size_t done = 0;
    while (done < buffer.size()) {
      const std::size_t count = source(buffer.data() + done, buffer.size() - done);
      if (count == 0) break;
      done += count;
    }
    return done;
  }
  static int StatusOf(pid_t child) {
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return status;
  }

  const TemporaryFolder m_folder;
  const std::string m_path = m_folder.At("log.xml");
};

TEST_F(LogSharingTest, WritersAtTheSameTimeLoseNothing) {
  constexpr int entities = 150;
  Store();
  const pid_t one = Writer(entities, 8);
  const pid_t other = Writer(entities, 9);
  EXPECT_EQ(StatusOf(one), 0);
  EXPECT_EQ(StatusOf(other), 0);
  EXPECT_EQ(CountRead(), 2 * entities);
  EXPECT_EQ(TextsOf(Bytes()).size(), 2U * entities);
  Tell(Bytes());
}

TEST_F(LogSharingTest, WritersInTheSameSecondLoseNothingUntoldAndMakeALogThatCanBeRead) {
  constexpr int entities = 100;
  Store();
  const pid_t one = Writer(entities);
  const pid_t other = Writer(entities);
  const int lost = WEXITSTATUS(StatusOf(one)) + WEXITSTATUS(StatusOf(other));
  EXPECT_LE(lost, entities);
  EXPECT_EQ(CountRead(), 2 * entities - lost);
}

TEST_F(LogSharingTest, AReadingIsOfTheLogAsItWasWhenItBegan) {
  const auto store = Store();
  store->OpenSession();
  const auto file = LogDisk().Open(m_path, ILogDisk::Access::Read);
  for (std::size_t early = 0; early < 60; ++early) { // bytes that are read after the log has grown
    const std::string before = Bytes();
    const auto source = LogReader::SourceOf(*file);
    std::string read(before.size() - early, ' ');
    ASSERT_EQ(Whole(source, read), read.size());
    store->AppendDataEntityToStore(Entity(u"1"));
    std::string rest(early + 1000, ' ');
    rest.resize(Whole(source, rest));
    EXPECT_EQ(read + rest, before);
  }
}

TEST_F(LogSharingTest, AReaderAtTheSameTimeNeverFindsTheLogBroken) {
  const auto keep = Store();
  const pid_t writer = Writer(2000);
  int status = 0;
  while (waitpid(writer, &status, WNOHANG) == 0) {
    const auto file = LogDisk().Open(m_path, ILogDisk::Access::Read);
    ILogVisitor nobody;
    const auto reading = LogReader::Read(*file, nobody);
    ASSERT_NE(reading.Ending, LogReading::End::Broken) << reading.Reason;
  }
  EXPECT_EQ(status, 0);
}

TEST_F(LogSharingTest, ALockIsHeldForASaveOnly) {
  const auto store = Store();
  store->OpenSession();
  const int descriptor = open(m_path.c_str(), O_RDONLY | O_CLOEXEC);
  ASSERT_EQ(flock(descriptor, LOCK_EX | LOCK_NB), 0);
  EXPECT_EQ(Tell(Bytes()).size(), 3U);
  EXPECT_EQ(Store()->FillDataContainerFromStore()->ClassName(), u"CDataFIFO"); // a reading asks for no lock
  const auto error = Raised([&] { store->AppendDataEntityToStore(Entity(u"1")); });
  EXPECT_EQ(error.Number, 75);
  close(descriptor);
  store->AppendDataEntityToStore(Entity(u"2"));
  EXPECT_EQ(TextsOf(Bytes()), (std::vector<std::string>{"3100", "3200"}));
}

TEST_F(LogSharingTest, AWaitForTheLockIsToldBeforeItBegins) {
  const auto store = Store();
  store->OpenSession();
  auto other = LogDisk().Open(m_path, ILogDisk::Access::ReadAndWrite);
  int waits = 0;
  store->AboutToWait().Connect([&] {
    ++waits;
    other.reset();
  });
  store->AppendDataEntityToStore(Entity(u"1"));
  store->AppendDataEntityToStore(Entity(u"2"));
  EXPECT_EQ(waits, 1);
  EXPECT_EQ(TextsOf(Bytes()), (std::vector<std::string>{"3100", "3200"}));
}

TEST_F(LogSharingTest, AWaitForTheLockIsToldOnce) {
  const auto store = Store();
  store->OpenSession();
  const auto other = LogDisk().Open(m_path, ILogDisk::Access::ReadAndWrite);
  int waits = 0;
  store->AboutToWait().Connect([&] { ++waits; });
  EXPECT_EQ(Raised([&] { store->AppendDataEntityToStore(Entity(u"1")); }).Number, 75);
  EXPECT_EQ(waits, 1);
}

TEST_F(LogSharingTest, AReadingUnderTheLockWaitsUntilNobodyWrites) {
  const auto store = Store();
  store->OpenSession();
  const std::string before = Bytes();
  int ready[2] = {};
  ASSERT_EQ(pipe(ready), 0);
  const pid_t writer = fork();
  if (writer == 0) {
    const auto file = LogDisk().Open(m_path, ILogDisk::Access::ReadAndWrite);
    file->Write(before.size(), "half");
    if (write(ready[1], "x", 1) != 1) std::_Exit(1);
    file->Truncate(before.size());
    file->Close();
    std::_Exit(0);
  }
  char sign = 0;
  ASSERT_EQ(read(ready[0], &sign, 1), 1);
  EXPECT_EQ(LogDisk().Open(m_path, ILogDisk::Access::LockedRead)->Identity().Size, before.size());
  EXPECT_EQ(StatusOf(writer), 0);
  close(ready[0]);
  close(ready[1]);
}

TEST_F(LogSharingTest, ReadersUnderTheLockDoNotShutEachOtherOutButWriters) {
  const auto store = Store();
  const auto one = LogDisk().Open(m_path, ILogDisk::Access::LockedRead);
  const auto other = LogDisk().Open(m_path, ILogDisk::Access::LockedRead);
  EXPECT_TRUE(one && other);
  EXPECT_THROW(LogDisk().Open(m_path, ILogDisk::Access::ReadAndWrite), std::system_error);
  EXPECT_THROW(one->Write(0, "x"), std::system_error); // a log that may only be read can be read so
}

} // namespace
} // namespace portico::test
