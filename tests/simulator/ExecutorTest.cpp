#include "simulator/Executor.h"

#include "simulator/ScpiError.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;

constexpr TimePoint kStart{std::chrono::hours(1)};

/// An executor with a handful of commands that show what it does.
class ExecutorTest : public testing::Test {
protected:
  ExecutorTest() {
    static constexpr Command<ExecutorTest> kTable[] = {
        {"STARt", &ExecutorTest::Start},      {"CANCel", &ExecutorTest::Cancel}, {"HOLD?", &ExecutorTest::Hold},
        {"ECHO?", &ExecutorTest::Echo, 1, 1}, {"FAIL?", &ExecutorTest::Fail},    {"DONE?", &ExecutorTest::Done},
        {"BIG?", &ExecutorTest::Big},         {"REPort", &ExecutorTest::Report},
    };
    tree_.Add(kTable, *this);
    executor_.Run(kStart);
  }

  void Submit(const char* message) {
    executor_.Submit(message);
    executor_.Run(now_);
  }
  std::string Pop() { return responses_.Pop(now_).value_or("(none)"); }
  std::string Error() { return status_.Errors().Pop(); }
  void Advance(milliseconds time) { executor_.Run(now_ += time); }

  StatusModel status_;
  ResponseQueue responses_;
  CommandTree tree_;
  Executor executor_{tree_, status_, responses_};
  TimePoint now_ = kStart;
  int done_ = 0;

private:
  void Start(const Call& /*call*/) {
    executor_.StartOperation(milliseconds(10), operation::kMeasuring, [this] { ++done_; });
  }
  void Cancel(const Call& /*call*/) { executor_.CancelOperation(); }
  void Hold(const Call& /*call*/) {
    executor_.WhenIdle([this] { executor_.Respond("held"); });
  }
  void Echo(const Call& call) { executor_.Respond(call.String(0)); }
  void Fail(const Call& /*call*/) { throw ScpiError(ErrorCode::DataOutOfRange); }
  void Done(const Call& /*call*/) { executor_.Respond(std::to_string(done_)); }
  void Big(const Call& /*call*/) { executor_.Respond(std::string(Executor::kLongestResponse / 2, 'x')); }
  void Report(const Call& /*call*/) { executor_.ReportCompletion(); }
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
  EXPECT_TRUE(executor_.OperationPending());
  EXPECT_EQ(executor_.OperationEnd(), kStart + milliseconds(10));
  EXPECT_EQ(status_.Operation().Condition(), operation::kMeasuring);
  Advance(milliseconds(9));
  EXPECT_EQ(done_, 0);
  Advance(milliseconds(1));
  EXPECT_EQ(done_, 1);
  EXPECT_FALSE(executor_.OperationPending());
  EXPECT_EQ(status_.Operation().Condition(), 0);
}

TEST_F(ExecutorTest, CommandsOverlapAnOperationUntilOneNeedsItsEnd) {
  Submit("STAR;ECHO? 'a'");
  EXPECT_EQ(Pop(), "a\n");
  Submit("HOLD?;DONE?");
  Submit("ECHO? 'b'");
  EXPECT_EQ(Pop(), "(none)");
  EXPECT_GT(executor_.InputBytes(), 0U);
  Advance(milliseconds(10));
  EXPECT_EQ(Pop(), "held;1\n");
  EXPECT_EQ(Pop(), "b\n");
  EXPECT_EQ(executor_.InputBytes(), 0U);
}

TEST_F(ExecutorTest, OperationsInARowFollowEachOtherHoweverLateTheCall) {
  Submit("STAR;HOLD?;STAR;HOLD?;STAR");
  Advance(milliseconds(25));
  EXPECT_EQ(done_, 2);
  EXPECT_EQ(executor_.OperationEnd(), kStart + milliseconds(30));
}

TEST_F(ExecutorTest, ACancelledOperationHasNoResults) {
  Submit("STAR;CANC;HOLD?");
  EXPECT_EQ(Pop(), "held\n");
  Advance(milliseconds(20));
  EXPECT_EQ(done_, 0);
  EXPECT_EQ(status_.Operation().Condition(), 0);
}

TEST_F(ExecutorTest, ANewOperationReplacesThePendingOne) {
  Submit("STAR");
  Advance(milliseconds(5));
  Submit("STAR");
  Advance(milliseconds(9));
  EXPECT_EQ(done_, 0);
  Advance(milliseconds(1));
  EXPECT_EQ(done_, 1);
}

TEST_F(ExecutorTest, ReportsCompletionOnce) {
  status_.TakeEvent();
  Submit("STAR;REP");
  EXPECT_EQ(status_.TakeEvent(), 0);
  Advance(milliseconds(10));
  EXPECT_EQ(status_.TakeEvent(), event::kOperationComplete);
  Submit("STAR");
  Advance(milliseconds(10));
  EXPECT_EQ(status_.TakeEvent(), 0);
}

TEST_F(ExecutorTest, AResponseBeyondAllMeasureIsDeadlocked) {
  Submit("BIG?;BIG?;ECHO? 'a'");
  EXPECT_EQ(Pop(), "(none)");
  EXPECT_EQ(Error(), "-430,\"Query DEADLOCKED\"");
  Submit("ECHO? 'b'");
  EXPECT_EQ(Pop(), "b\n");
}

TEST_F(ExecutorTest, FullOutputHoldsTheInput) {
  for (std::size_t i = 0; i < ResponseQueue::kMostMessages + 1; ++i) Submit("ECHO? 'a'");
  EXPECT_TRUE(executor_.HeldByOutput());
  EXPECT_GT(executor_.InputBytes(), 0U);
  EXPECT_EQ(Pop(), "a\n");
  executor_.Run(now_);
  EXPECT_EQ(executor_.InputBytes(), 0U);
  EXPECT_EQ(Error(), "0,\"No error\"");
}

TEST_F(ExecutorTest, AnUnreadAnswerIsAvailable) {
  EXPECT_FALSE(executor_.MessageAvailable());
  Submit("ECHO? 'a'");
  EXPECT_TRUE(executor_.MessageAvailable());
  Pop();
  EXPECT_FALSE(executor_.MessageAvailable());
}

} // namespace
} // namespace portico::simulator
