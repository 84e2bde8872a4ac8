#include "document/log/LogFile.h"
#include "support/Files.h"
#include "support/doubles/FlushRecorder.h"
#include "terminal/BatchRunBench.h"

namespace portico::terminal {
namespace {

/// What has been written for good when something waits.
class BatchRunOutputTest : public test::BatchRunBench {
protected:
  BatchRunOutputTest() {
    Options.Options = {{u"SCPIProtocolOPCPacing", u"Off"}, {u"SCPIProtocolAutoErrorChecking", u"Off"}};
  }
  int RunInto(const Sources& sources) {
    std::ostream out(&Recorder);
    BatchRun run(Options, Window, Interrupts, News, out, Err);
    return static_cast<int>(run.Run(sources));
  }
  static Sources SourceOf(std::vector<String> lines) {
    Sources sources;
    sources.push_back(std::make_unique<FileLines>("lines.cmd", std::move(lines)));
    return sources;
  }

  test::FlushRecorder Recorder;
};

TEST_F(BatchRunOutputTest, WhatIsShownIsWrittenBeforeAnAnswerIsAwaited) {
  std::vector<std::string> written;
  Driver->OnRead = [&]() -> test::DriverDouble::Reading {
    News.Waits();
    written.push_back(Recorder.Flushed.back());
    return {0, std::string("1") + '\0'};
  };
  EXPECT_EQ(RunInto(SourceOf({u"A?", u"B?"})), 0);
  EXPECT_EQ(written, (std::vector<std::string>{"> A?\n", "> A?\n< 1\n> B?\n"}));
}

TEST_F(BatchRunOutputTest, LinesWithNoWaitBetweenThemAreWrittenTogether) {
  EXPECT_EQ(RunInto(SourceOf({u"*CLS", u"REM and", u"*RST"})), 0);
  ASSERT_FALSE(Recorder.Flushed.empty());
  EXPECT_EQ(Recorder.Flushed.front(), "> *CLS\n# REM and\n> *RST\n");
}

TEST_F(BatchRunOutputTest, WhatIsShownIsWrittenBeforeADiagnostic) {
  std::string written;
  Answers.Listed["A?"] = "1";
  Driver->Statuses["write B"] = -7;
  struct Watch final : std::stringbuf {
    explicit Watch(std::function<void()> call) : Call(std::move(call)) {}
    int sync() override {
      Call();
      return 0;
    }
    std::function<void()> Call;
  } watch([&] { written = Recorder.Flushed.empty() ? "nothing" : Recorder.Flushed.back(); });
  std::ostream out(&Recorder);
  std::ostream err(&watch);
  BatchRun run(Options, Window, Interrupts, News, out, err);
  EXPECT_EQ(static_cast<int>(run.Run(SourceOf({u"A?", u"B"}))), 4);
  EXPECT_EQ(watch.str(), "portico-run: lines.cmd:2: failure -7\n");
  EXPECT_EQ(written, "> A?\n< 1\n> B\n");
}

TEST_F(BatchRunOutputTest, WhatIsShownIsWrittenBeforeTheLogIsWaitedFor) {
  const test::TemporaryFolder folder;
  Options.LogFile = FromUtf8(folder.At("run.log")).Text;
  std::unique_ptr<ILogFile> other; // another program's, while it has the log locked
  Driver->OnRead = [&]() -> test::DriverDouble::Reading {
    other = LogDisk().Open(folder.At("run.log"), ILogDisk::Access::ReadAndWrite);
    return {0, std::string("1") + '\0'};
  };
  std::vector<std::string> written;
  std::ostream out(&Recorder);
  BatchRun run(Options, Window, Interrupts, News, out, Err);
  News.AboutToWait.Connect([&] {
    if (other) written.push_back(Recorder.Flushed.back());
    other.reset();
  });
  EXPECT_EQ(static_cast<int>(run.Run(SourceOf({u"A?"}))), 0);
  EXPECT_EQ(written, (std::vector<std::string>{"> A?\n< 1\n"}));
  EXPECT_EQ(Err.str(), ""); // the save was told of in time to get the lock
}

/// Has one line, and the next only after a wait.
class SlowLines final : public LineSource {
public:
  SlowLines(std::vector<String> lines, std::function<void()> wait)
      : m_lines(std::move(lines)), m_wait(std::move(wait)) {}
  std::string Name() const override { return "slow"; }
  std::variant<std::optional<String>, TextFault> Next() override {
    m_wait();
    if (m_next == m_lines.size()) return std::optional<String>{};
    return std::optional(m_lines[m_next++]);
  }
  bool HasLineAtHand() const override { return false; }
  std::optional<std::size_t> LinesLeft() const override { return {}; }

private:
  std::vector<String> m_lines;
  std::function<void()> m_wait;
  std::size_t m_next = 0;
};

TEST_F(BatchRunOutputTest, WhatIsShownIsWrittenBeforeInputIsAwaited) {
  std::vector<std::string> written;
  Sources sources;
  sources.push_back(std::make_unique<SlowLines>(std::vector<String>{u"*CLS", u"REM and"},
                                                [&] { written.push_back(Recorder.Flushed.back()); }));
  EXPECT_EQ(RunInto(sources), 0);
  EXPECT_EQ(written, (std::vector<std::string>{"", "> *CLS\n", "> *CLS\n# REM and\n"}));
}

} // namespace
} // namespace portico::terminal
