#include "terminal/QueryBench.h"

#include "support/Files.h"
#include "support/doubles/DriverDouble.h"

#include <gtest/gtest.h>

#include <sstream>

namespace portico::terminal {
namespace {

using namespace std::chrono_literals;
using test::DriverDouble;
using test::Journal;
using test::TemporaryFolder;

/// A bench over a double in a time of its own, in which queries take as long as they are told to.
class QueryBenchTest : public testing::Test {
protected:
  QueryBenchTest() {
    m_options.Instrument = u"SIM::dmm::INSTR";
    m_options.Bench = {3, u"*IDN?", {}};
    m_driver.OnRead = [this] {
      m_time += m_taken(m_reads++);
      return m_reading;
    };
  }

  ExitStatus Run() {
    const auto interrupted = [this] { return m_reads >= m_interruptedAfter; };
    const auto now = [this] { return std::chrono::steady_clock::time_point(m_time); };
    return QueryBench(m_options, m_driver, interrupted, m_out, m_err, now).Run();
  }

  RunOptions m_options;
  Journal m_journal;
  DriverDouble m_driver{m_journal};
  DriverDouble::Reading m_reading{0, "answer\n", {}};
  std::function<std::chrono::nanoseconds(int)> m_taken = [](int) { return 1us; };
  std::chrono::nanoseconds m_time{};
  int m_reads = 0;
  int m_interruptedAfter = 1'000'000'000;
  std::ostringstream m_out;
  std::ostringstream m_err;
};

TEST_F(QueryBenchTest, AsksSoManyTimesOverOneSession) {
  EXPECT_EQ(Run(), ExitStatus::Success);
  EXPECT_EQ(m_journal, (std::vector<std::string>{"init SIM::dmm::INSTR", "write *IDN?", "read", "write *IDN?", "read",
                                                 "write *IDN?", "read", "close"}));
  EXPECT_EQ(m_err.str(), "");
}

TEST_F(QueryBenchTest, PrintsMedianPercentilesAndMaximum) {
  m_options.Bench->Queries = 1000;
  m_taken = [](int read) { return (1000 - read) * 100ns; };
  Run();
  EXPECT_EQ(m_out.str(), "queries  1000\n"
                         "median   50.0 us\n"
                         "90 %     90.0 us\n"
                         "99 %     99.0 us\n"
                         "maximum  100.0 us\n");
}

TEST_F(QueryBenchTest, OneQueryIsAllOfThem) {
  m_options.Bench->Queries = 1;
  m_taken = [](int) { return 1234567ns; };
  Run();
  EXPECT_EQ(m_out.str(), "queries  1\n"
                         "median   1234.6 us\n"
                         "90 %     1234.6 us\n"
                         "99 %     1234.6 us\n"
                         "maximum  1234.6 us\n");
}

TEST_F(QueryBenchTest, WriteAndReadCount) {
  m_driver.OnWrite = [this](const std::string&) {
    m_time += 2us;
    return 0;
  };
  Run();
  EXPECT_NE(m_out.str().find("median   3.0 us\n"), std::string::npos) << m_out.str();
}

TEST_F(QueryBenchTest, SavesTheSamplesInTheirOrder) {
  const TemporaryFolder folder;
  m_options.Bench->CsvFile = folder.At("samples.csv");
  folder.Write("samples.csv", "what was there before, and is longer than what comes now");
  m_taken = [](int read) { return (3 - read) * 1500ns; };
  EXPECT_EQ(Run(), ExitStatus::Success);
  EXPECT_EQ(folder.Read("samples.csv"), "query,microseconds\n1,4.500\n2,3.000\n3,1.500\n");
}

TEST_F(QueryBenchTest, AFileThatCannotBeWrittenIsWrongUsageAndNothingIsAsked) {
  m_options.Bench->CsvFile = "/no/such/folder/samples.csv";
  EXPECT_EQ(Run(), ExitStatus::Usage);
  EXPECT_EQ(m_err.str(), "portico-run: cannot write /no/such/folder/samples.csv: No such file or directory\n");
  EXPECT_TRUE(m_journal.empty());
}

TEST_F(QueryBenchTest, SamplesThatDoNotFitAreIncomplete) {
  m_options.Bench->CsvFile = "/dev/full";
  EXPECT_EQ(Run(), ExitStatus::Internal);
  EXPECT_EQ(m_err.str(), "portico-run: /dev/full is incomplete\n");
}

TEST_F(QueryBenchTest, AnInstrumentThatDoesNotOpenIsTold) {
  m_driver.Statuses["init"] = -5;
  EXPECT_EQ(Run(), ExitStatus::NotOpened);
  EXPECT_EQ(m_err.str(), "portico-run: cannot open SIM::dmm::INSTR: failure -5\n");
  EXPECT_EQ(m_out.str(), "");
}

TEST_F(QueryBenchTest, StopsAtAQueryThatFailsAndTellsTheOthersFigures) {
  m_driver.OnRead = [this] {
    m_time += 1us;
    return ++m_reads == 3 ? DriverDouble::Reading{-7, "", {}} : m_reading;
  };
  EXPECT_EQ(Run(), ExitStatus::DriverFailure);
  EXPECT_EQ(m_err.str(), "portico-run: query 3: failure -7\n");
  EXPECT_EQ(m_out.str().substr(0, 11), "queries  2\n");
  EXPECT_EQ(m_journal.back(), "close");
}

TEST_F(QueryBenchTest, AWriteThatFailsIsNotRead) {
  m_driver.OnWrite = [](const std::string&) { return -9; };
  EXPECT_EQ(Run(), ExitStatus::DriverFailure);
  EXPECT_EQ(m_err.str(), "portico-run: query 1: failure -9\n");
  EXPECT_EQ(m_out.str(), "");
  EXPECT_EQ(m_reads, 0);
}

TEST_F(QueryBenchTest, AnAnswerThatIsTooLongFails) {
  m_reading.Count = 0x100000;
  EXPECT_EQ(Run(), ExitStatus::DriverFailure);
  EXPECT_EQ(m_err.str(), "portico-run: query 1: the answer is too long and was dropped\n");
}

TEST_F(QueryBenchTest, AnInterruptEndsItBetweenTwoQueries) {
  m_interruptedAfter = 2;
  EXPECT_EQ(Run(), ExitStatus::Interrupted);
  EXPECT_EQ(m_err.str(), "portico-run: interrupted after 2 of 3 queries\n");
  EXPECT_EQ(m_out.str().substr(0, 11), "queries  2\n");
}

TEST_F(QueryBenchTest, AQueryThatTheInterruptEndedIsNoFailure) {
  m_interruptedAfter = 1;
  m_reading.Status = -3;
  EXPECT_EQ(Run(), ExitStatus::Interrupted);
  EXPECT_EQ(m_err.str(), "portico-run: interrupted after 0 of 3 queries\n");
}

TEST_F(QueryBenchTest, ACloseThatFailsIsTold) {
  m_driver.Statuses["close"] = -4;
  EXPECT_EQ(Run(), ExitStatus::DriverFailure);
  EXPECT_EQ(m_err.str(), "portico-run: failure -4\n");
}

TEST_F(QueryBenchTest, FiguresThatCannotBeWrittenAreTold) {
  m_out.setstate(std::ios::badbit);
  EXPECT_EQ(Run(), ExitStatus::Internal);
  EXPECT_EQ(m_err.str(), "portico-run: standard output cannot be written\n");
}

TEST_F(QueryBenchTest, TextCrossesInTheInstrumentsCodePage) {
  m_options.Instrument = u"SIM::Gerät::INSTR";
  m_options.Bench = {1, u"DISP \u201CÄ\u201D?", {}};
  Run();
  EXPECT_EQ(m_journal[0], "init SIM::Ger\xE4t::INSTR");
  EXPECT_EQ(m_journal[1], "write DISP \x93\xC4\x94?");
}

} // namespace
} // namespace portico::terminal
