#include "document/log/LogBench.h"
#include "support/Files.h"

#include <atomic>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <random>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace portico::test {
namespace {

/// A number that a child process counts up and its parent reads.
class SharedCounter {
public:
  SharedCounter()
      : m_value(static_cast<std::atomic<std::size_t>*>(mmap(
            nullptr, sizeof(std::atomic<std::size_t>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {
    *m_value = 0;
  }
  ~SharedCounter() { munmap(m_value, sizeof(std::atomic<std::size_t>)); }
  SharedCounter(const SharedCounter&) = delete;
  SharedCounter& operator=(const SharedCounter&) = delete;
  std::atomic<std::size_t>& Value() { return *m_value; }

private:
  std::atomic<std::size_t>* m_value;
};

class LogKillTest : public DocumentTest {
protected:
  const TemporaryFolder m_folder;
  const std::string m_path = m_folder.At("log.xml");

  std::string Bytes() const { return ReadFile(m_path); }

  /// Logs until it is killed: sessions of a few entities of all sizes, some of many pages.
  [[noreturn]] void Log(std::atomic<std::size_t>& done) {
    auto store = New<CXMLDataStore>();
    store->Initialize(FromUtf8(m_path).Text, false);
    for (std::size_t i = 0;; ++i) {
      store->OpenSession();
      for (int entity = 0; entity < 5; ++entity) {
        const std::size_t size = (i * 7 + static_cast<std::size_t>(entity) * 1300) % 9000;
        store->AppendDataEntityToStore(modDataDocument::CreateADataEntity(ByteArray(size, 0x41), u"Response", u""));
        ++done;
      }
      store->CloseSession();
    }
  }
};

/// Each child begins on a fresh log, or on what the one before has left.
TEST_F(LogKillTest, EveryLogOpensAndMissesAtMostTheEntityThatWasBeingWritten) {
  constexpr int kills = 300;
  std::mt19937 random(20041101);
  std::uniform_int_distribution<long> instant(0, 2'500'000); // nanoseconds
  for (int kill = 0; kill < kills; ++kill) {
    if (kill % 4 == 0) std::filesystem::remove(m_path);
    const std::size_t before = TextsOf(Bytes()).size();
    SharedCounter done;
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) Log(done.Value());
    const timespec wait{0, instant(random)};
    nanosleep(&wait, nullptr);
    ::kill(child, SIGKILL);
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    if (!std::filesystem::exists(m_path)) {
      EXPECT_EQ(done.Value(), 0U);
      continue;
    }
    Told told;
    const auto reading = LogReader::Read(Bytes(), told);
    ASSERT_NE(reading.Ending, LogReading::End::Broken) << reading.Reason << " in line " << reading.Line;
    ASSERT_TRUE(reading.IsOurs());
    ASSERT_GE(told.Texts.size(), before + done.Value());
    ASSERT_LE(told.Texts.size(), before + done.Value() + 1);
  }
}

} // namespace
} // namespace portico::test
