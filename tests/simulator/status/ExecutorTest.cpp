#include "simulator/status/Executor.h"

#include "scpi/ScpiError.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;

constexpr TimePoint StartTime{std::chrono::hours(1)};

/// An executor with a handful of commands that show what it does.
class ExecutorTest : public testing::Test {
protected:
  ExecutorTest() {
    static constexpr Command<ExecutorTest> Table[] = {
        {"STARt", &ExecutorTest::Start},      {"CANCel", &ExecutorTest::Cancel}, {"HOLD?", &ExecutorTest::Hold},
        {"ECHO?", &ExecutorTest::Echo, 1, 1}, {"FAIL?", &ExecutorTest::Fail},    {"DONE?", &ExecutorTest::Done},
        {"BIG?", &ExecutorTest::Big},         {"REPort", &ExecutorTest::Report}, {"WAIT", &ExecutorTest::Wait},
        {"TWICe", &ExecutorTest::Twice},
    };
    m_tree.Add(Table, *this);
    m_executor.Run(StartTime);
  }

  void Submit(const char* message) {
    m_exchange->Submit(message);
    m_executor.Run(m_now);
  }
  std::string Pop() { return m_exchange->Responses().Pop(m_now).value_or("(none)"); }
  std::string Error() { return m_status.Errors().Pop(); }
  void Advance(milliseconds time) { m_executor.Run(m_now += time); }

  StatusModel m_status;
  CommandTree m_tree;
  Executor m_executor{m_tree, m_status};
  const std::shared_ptr<MessageExchange> m_exchange = m_executor.Join();
  TimePoint m_now = StartTime;
  int m_done = 0;

private:
  void Start(const Call& /*call*/) {
    m_executor.StartOperation(milliseconds(10), OperationBit::Measuring, [this] { ++m_done; });
  }
  void Cancel(const Call& /*call*/) { m_executor.CancelOperation(); }
  void Hold(const Call& /*call*/) {
    m_executor.WhenIdle([this] { m_executor.Respond("held"); });
  }
  void Echo(const Call& call) { m_executor.Respond(call.String(0)); }
  void Fail(const Call& /*call*/) { throw scpi::ScpiError(scpi::ErrorCode::DataOutOfRange); }
  void Done(const Call& /*call*/) { m_executor.Respond(std::to_string(m_done)); }
  void Big(const Call& /*call*/) { m_executor.Respond(std::string(MessageExchange::LongestResponse / 2, 'x')); }
  void Report(const Call& /*call*/) { m_executor.ReportCompletion(); }
  void Wait(const Call& /*call*/) { m_executor.StartOperation(Executor::Forever, OperationBit::Measuring); }
  void Twice(const Call& /*call*/) {
    m_executor.StartOperation(milliseconds(10), OperationBit::Settling,
                              [this] { m_executor.StartOperation(milliseconds(10), OperationBit::Measuring); });
  }
};

TEST_F(ExecutorTest, JoinsTheAnswersOfAMessage) {
  Submit("ECHO? 'a';ECHO? 'b';ECHO? 'c'");
  EXPECT_EQ(Pop(), "a;b;c\n");
  EXPECT_EQ(Pop(), "(none)");
}

TEST_F(ExecutorTest, AnEmptyAnswerIsAnAnswer) {
  Submit("ECHO? ''");
  EXPECT_EQ(Pop(), "\n");
  Submit("ECHO? '';ECHO? 'b'");
  EXPECT_EQ(Pop(), ";b\n");
}

TEST_F(ExecutorTest, ACommandErrorAbandonsTheRestOfTheMessage) {
  Submit("ECHO? 'a';NONSENSE;ECHO? 'b'");
  EXPECT_EQ(Pop(), "a\n");
  EXPECT_EQ(Pop(), "(none)");
  EXPECT_EQ(Error(), "-113,\"Undefined header\"");
  Submit("ECHO? 'c'");
  EXPECT_EQ(Pop(), "c\n");
}

TEST_F(ExecutorTest, AnExecutionErrorFailsItsUnitOnly) {
  Submit("ECHO? 'a';FAIL?;ECHO? 'b'");
  EXPECT_EQ(Pop(), "a;b\n");
  EXPECT_EQ(Error(), "-222,\"Data out of range\"");
}

TEST_F(ExecutorTest, AnOperationEndsInItsTime) {
  Submit("STAR");
  EXPECT_TRUE(m_executor.OperationPending());
  EXPECT_EQ(m_executor.OperationEnd(), StartTime + milliseconds(10));
  EXPECT_EQ(m_status.Operation().Condition(), OperationBit::Measuring);
  Advance(milliseconds(9));
  EXPECT_EQ(m_done, 0);
  Advance(milliseconds(1));
  EXPECT_EQ(m_done, 1);
  EXPECT_FALSE(m_executor.OperationPending());
  EXPECT_EQ(m_status.Operation().Condition(), 0);
}

TEST_F(ExecutorTest, CommandsOverlapAnOperationUntilOneNeedsItsEnd) {
  Submit("STAR;ECHO? 'a'");
  EXPECT_EQ(Pop(), "a\n");
  Submit("HOLD?;DONE?");
  Submit("ECHO? 'b'");
  EXPECT_EQ(Pop(), "(none)");
  EXPECT_GT(m_exchange->InputBytes(), 0U);
  Advance(milliseconds(10));
  EXPECT_EQ(Pop(), "held;1\n");
  EXPECT_EQ(Pop(), "b\n");
  EXPECT_EQ(m_exchange->InputBytes(), 0U);
}

TEST_F(ExecutorTest, OperationsInARowFollowEachOtherHoweverLateTheCall) {
  Submit("STAR;HOLD?;STAR;HOLD?;STAR");
  Advance(milliseconds(25));
  EXPECT_EQ(m_done, 2);
  EXPECT_EQ(m_executor.OperationEnd(), StartTime + milliseconds(30));
}

TEST_F(ExecutorTest, ACancelledOperationHasNoResults) {
  Submit("STAR;CANC;HOLD?");
  EXPECT_EQ(Pop(), "held\n");
  Advance(milliseconds(20));
  EXPECT_EQ(m_done, 0);
  EXPECT_EQ(m_status.Operation().Condition(), 0);
}

TEST_F(ExecutorTest, ANewOperationReplacesThePendingOne) {
  Submit("STAR");
  Advance(milliseconds(5));
  Submit("STAR");
  Advance(milliseconds(9));
  EXPECT_EQ(m_done, 0);
  Advance(milliseconds(1));
  EXPECT_EQ(m_done, 1);
}

TEST_F(ExecutorTest, ReportsCompletionOnce) {
  m_status.TakeEvent();
  Submit("STAR;REP");
  EXPECT_EQ(m_status.TakeEvent(), 0);
  Advance(milliseconds(10));
  EXPECT_EQ(m_status.TakeEvent(), EventBit::OperationComplete);
  Submit("STAR");
  Advance(milliseconds(10));
  EXPECT_EQ(m_status.TakeEvent(), 0);
}

TEST_F(ExecutorTest, AnOperationMayGoOnInAnother) {
  m_status.TakeEvent();
  Submit("TWIC;REP;HOLD?");
  Advance(milliseconds(10));
  EXPECT_EQ(m_status.Operation().Condition(), OperationBit::Measuring);
  EXPECT_EQ(m_status.TakeEvent(), 0);
  EXPECT_EQ(Pop(), "(none)");
  Advance(milliseconds(10));
  EXPECT_EQ(m_status.TakeEvent(), EventBit::OperationComplete);
  EXPECT_EQ(Pop(), "held\n");
}

TEST_F(ExecutorTest, AnOperationMayWaitForEver) {
  Submit("WAIT;HOLD?");
  EXPECT_FALSE(m_executor.OperationEnd());
  Advance(std::chrono::hours(100'000));
  EXPECT_TRUE(m_executor.OperationPending());
  EXPECT_EQ(Pop(), "(none)");
}

TEST_F(ExecutorTest, WhatIsOfAnAbandonedExchangeGoesOn) {
  for (std::size_t i = 0; i < ResponseQueue::MostMessages + 1; ++i) Submit("ECHO? 'a'");
  Submit("FAIL?;STAR");
  EXPECT_FALSE(m_executor.OperationPending());
  m_exchange->Abandon();
  Advance(milliseconds(0));
  EXPECT_EQ(Error(), "-222,\"Data out of range\"");
  EXPECT_TRUE(m_executor.OperationPending());
  EXPECT_FALSE(m_exchange->MessageAvailable());
  EXPECT_FALSE(m_exchange->Busy());
}

TEST_F(ExecutorTest, AResponseBeyondAllMeasureIsDeadlocked) {
  Submit("BIG?;BIG?;ECHO? 'a'");
  EXPECT_EQ(Pop(), "(none)");
  EXPECT_EQ(Error(), "-430,\"Query DEADLOCKED\"");
  Submit("ECHO? 'b'");
  EXPECT_EQ(Pop(), "b\n");
}

TEST_F(ExecutorTest, FullOutputHoldsTheInput) {
  for (std::size_t i = 0; i < ResponseQueue::MostMessages + 1; ++i) Submit("ECHO? 'a'");
  EXPECT_TRUE(m_exchange->HeldByOutput());
  EXPECT_GT(m_exchange->InputBytes(), 0U);
  EXPECT_EQ(Pop(), "a\n");
  m_executor.Run(m_now);
  EXPECT_EQ(m_exchange->InputBytes(), 0U);
  EXPECT_EQ(Error(), "0,\"No error\"");
}

TEST_F(ExecutorTest, AnUnreadAnswerIsAvailable) {
  EXPECT_FALSE(m_exchange->MessageAvailable());
  Submit("ECHO? 'a'");
  EXPECT_TRUE(m_exchange->MessageAvailable());
  Pop();
  EXPECT_FALSE(m_exchange->MessageAvailable());
}

} // namespace
} // namespace portico::simulator
