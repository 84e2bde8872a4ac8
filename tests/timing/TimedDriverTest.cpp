#include "timing/TimedDriver.h"

#include "support/doubles/DriverDouble.h"

#include <gtest/gtest.h>

#include <array>

namespace portico::timing {
namespace {

using namespace std::chrono_literals;
using test::DriverDouble;
using test::Journal;

/// Over a double in a time of its own: a write takes 1000 ns, a read 20, and what is between them 300.
class TimedDriverTest : public testing::Test {
protected:
  TimedDriverTest() {
    m_double->OnWrite = [this](const std::string&) {
      m_time += 1000ns;
      return m_writing;
    };
    m_double->OnRead = [this] {
      m_time += 20ns;
      return m_reading;
    };
  }

  std::int32_t Write(const std::string& text, std::int32_t session = 7) {
    return m_timed.TVSCPI_WriteInstrData(session, text + '\r');
  }
  std::int32_t Read(std::int32_t session = 7) {
    m_time += 300ns;
    std::int32_t count = 0;
    return m_timed.TVSCPI_ReadInstrData(session, static_cast<std::int32_t>(m_buffer.size()), m_buffer.data(), count);
  }
  std::vector<std::string> Times() const {
    std::vector<std::string> lines;
    for (const QueryFigures& row : m_timed.Times().Figures()) {
      lines.push_back(ToUtf8(row.Query.value_or(u"others")) + " " + std::to_string(row.Count) + " " +
                      std::to_string(row.Maximum.count()));
    }
    return lines;
  }
  using Lines = std::vector<std::string>;

  Journal m_journal;
  const std::shared_ptr<DriverDouble> m_double = std::make_shared<DriverDouble>(m_journal);
  std::chrono::nanoseconds m_time{};
  TimedDriver m_timed{m_double, [this] { return std::chrono::steady_clock::time_point(m_time); }};
  std::int32_t m_writing = 0;
  DriverDouble::Reading m_reading{0, "answer\n", {}};
  std::array<char, 100> m_buffer{};
};

TEST_F(TimedDriverTest, AnExchangeGoesFromTheWriteToTheEndOfItsRead) {
  EXPECT_EQ(Write("*IDN?"), 0);
  EXPECT_EQ(Read(), 0);
  EXPECT_EQ(Times(), Lines{"*IDN? 1 1320"});
  EXPECT_EQ(m_journal, (Journal{"write *IDN?", "read"}));
}

TEST_F(TimedDriverTest, AWriteWithoutAReadIsNone) {
  Write("*CLS");
  Write("A?");
  Read();
  EXPECT_EQ(Times(), Lines{"A? 1 1320"});
}

TEST_F(TimedDriverTest, OnlyTheFirstReadBehindAWriteCounts) {
  Read();
  Write("A?");
  Read();
  Read();
  EXPECT_EQ(Times(), Lines{"A? 1 1320"});
}

TEST_F(TimedDriverTest, WhatFailsIsNone) {
  m_writing = -9;
  EXPECT_EQ(Write("A?"), -9);
  Read();
  m_writing = 0;
  m_reading.Status = -14;
  Write("B?");
  EXPECT_EQ(Read(), -14);
  m_reading.Status = 0;
  Read();
  EXPECT_EQ(Times(), Lines());
}

TEST_F(TimedDriverTest, AReadOfAnotherSessionOrBehindACloseOrAClearIsNone) {
  Write("A?", 7);
  Read(8);
  Write("B?", 7);
  m_timed.TVSCPI_close(7);
  Read(7);
  Write("C?");
  m_timed.Clear(7);
  Read();
  Write("D?", 0);
  Read(0);
  EXPECT_EQ(Times(), Lines());
}

TEST_F(TimedDriverTest, ALongTextSharesTheRowOfTheOthers) {
  Write(std::string(257, 'A'));
  Read();
  Write(std::string(1'000'000, 'A'));
  Read();
  Write(std::string(256, 'A'));
  Read();
  EXPECT_EQ(Times(), (Lines{std::string(256, 'A') + " 1 1320", "others 2 1320"}));
}

TEST_F(TimedDriverTest, TimesCanBeForgotten) {
  Write("A?");
  Read();
  m_timed.ForgetTimes();
  EXPECT_EQ(Times(), Lines());
}

TEST_F(TimedDriverTest, EveryCallReachesTheDriverAsItStandsAndItsAnswerTheCaller) {
  std::vector<std::string> calls;
  m_double->OnDetail = [&](const std::string& call) { calls.push_back(call); };
  const auto callAll = [&](IExtendedDriver& driver) {
    calls.clear();
    m_journal.clear();
    std::int32_t session = 3;
    std::int32_t number = 4;
    std::int32_t count = 5;
    std::vector<std::string> told = {std::to_string(driver.TVSCPI_init("name", 1, 2, session)),
                                     std::to_string(session),
                                     std::to_string(driver.TVSCPI_WriteInstrData(session, "text\r")),
                                     std::to_string(driver.TVSCPI_ReadInstrData(session, 90, m_buffer.data(), count)),
                                     std::string(m_buffer.data(), 7),
                                     std::to_string(count)};
    told.push_back(std::to_string(driver.TVSCPI_GetAttributeViInt32(session, 0, 11, number)));
    told.push_back(std::to_string(number));
    told.push_back(std::to_string(driver.TVSCPI_GetAttributeViString(session, 0, 12, 91, m_buffer.data())));
    told.emplace_back(m_buffer.data());
    told.push_back(std::to_string(driver.TVSCPI_SetAttributeViInt32(session, 0, 13, 14)));
    told.push_back(std::to_string(driver.TVSCPI_SetAttributeViString(session, 0, 15, "value")));
    std::array<char, 256> message{};
    told.push_back(std::to_string(driver.TVSCPI_error_message(session, -77, message.data())));
    told.emplace_back(message.data());
    told.push_back(std::to_string(driver.SetTimeout(std::chrono::milliseconds(1234))));
    told.push_back(std::to_string(driver.Clear(session)));
    told.push_back(std::to_string(driver.GoToLocal(session)));
    told.push_back(std::to_string(driver.TVSCPI_close(session)));
    told.insert(told.end(), calls.begin(), calls.end());
    told.insert(told.end(), m_journal.begin(), m_journal.end());
    return told;
  };
  m_double->Number = 42;
  m_double->Statuses = {{"GetAttributeViInt32", -3},
                        {"SetAttributeViString", 5},
                        {"close", -6},
                        {"SetTimeout", -2},
                        {"Clear", -8},
                        {"GoToLocal", 9}};
  const auto direct = callAll(*m_double);
  EXPECT_EQ(calls.size(), 12U);
  EXPECT_EQ(callAll(m_timed), direct);
}

} // namespace
} // namespace portico::timing
