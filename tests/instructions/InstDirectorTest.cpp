#include "instructions/CInstDirector.h"
#include "instructions/CInstHandler.h"

#include "support/ErrorReports.h"
#include "support/doubles/InstructionFakes.h"

namespace portico {
namespace {

using test::FailureOf;
using test::Hex;
using test::InstructionFakeHandler;
using test::Journal;
using test::MakeInstruction;

class CInstDirectorTest : public ::testing::Test {
protected:
  void SetUp() override { HuntERR::Reset(); }
  void TearDown() override { HuntERR::Reset(); }

  void Register(const String& prefix, const std::string& name, std::int32_t answer) {
    m_director.RegisterHandler(New<InstructionFakeHandler>(m_calls, prefix, name, answer));
    m_calls.clear();
  }
  std::int32_t Send() { return m_director.Send(MakeInstruction(u"SCPI", u"Send")); }

  Journal m_calls;
  CInstDirector m_director;
};

TEST_F(CInstDirectorTest, OffersEveryInstructionToEveryHandlerInOrder) {
  Register(u"COMM", "COMM", 1);
  Register(u"SCPI", "SCPI", 0);
  Register(u"CONFIG", "CONFIG", 1);
  EXPECT_EQ(Send(), 0);
  EXPECT_EQ(m_calls, (Journal{"send COMM", "send SCPI", "send CONFIG"}));
}

TEST_F(CInstDirectorTest, DoesNotStopAtTheFirstSuccess) {
  Register(u"A", "A", 0);
  Register(u"B", "B", 0);
  EXPECT_EQ(Send(), 0);
  EXPECT_EQ(m_calls, (Journal{"send A", "send B"}));
}

TEST_F(CInstDirectorTest, OnlyZeroCountsAsHandled) {
  Register(u"A", "A", 2);
  EXPECT_EQ(FailureOf([&] { Send(); }).Number, Hex(0x80041450));
}

TEST_F(CInstDirectorTest, WithoutHandlersEveryInstructionFails) {
  const auto failure = FailureOf([&] { Send(); });
  EXPECT_EQ(failure.Number, Hex(0x80041450));
  EXPECT_EQ(failure.Text, u"This instruction processor cannot handle SCPI.");
  EXPECT_EQ(failure.Source, u"HuntERR.Check");
  EXPECT_EQ(failure.Labels, std::vector<String>{u"CInstDirector.IInstProcessor_Send(Instruction)"});
}

TEST_F(CInstDirectorTest, AnInstructionThatAllDeclineNamesItsType) {
  Register(u"COMM", "COMM", 1);
  EXPECT_EQ(FailureOf([&] { m_director.Send(MakeInstruction(u"Other", u"Send")); }).Text,
            u"This instruction processor cannot handle Other.");
}

TEST_F(CInstDirectorTest, ANewHandlerReplacesTheOldOneAndTakesTheLastPlace) {
  Register(u"SCPI", "old", 0);
  Register(u"COMM", "COMM", 1);
  Register(u"scpi", "new", 0);
  Send();
  EXPECT_EQ(m_calls, (Journal{"send COMM", "send new"}));
}

TEST_F(CInstDirectorTest, AHandlerThatIsNothingIsRefused) {
  const auto failure = FailureOf([&] { m_director.RegisterHandler({}); });
  EXPECT_EQ(failure.Number, 91);
  EXPECT_EQ(failure.Text, u"Handler cannot be nothing.");
  EXPECT_EQ(failure.Labels, std::vector<String>{u"CInstDirector.RegisterHandler(Handler)"});
}

TEST_F(CInstDirectorTest, AProcessorThatIsNoHandlerIsRefused) {
  EXPECT_EQ(FailureOf([&] { m_director.RegisterHandler(New<CInstDirector>()); }).Number, 13);
  EXPECT_EQ(FailureOf([&] { Send(); }).Number, Hex(0x80041450)) << "it must not be in the list";
}

TEST_F(CInstDirectorTest, AHandlerThatIsNotInitializedIsRefused) {
  EXPECT_EQ(FailureOf([&] { m_director.RegisterHandler(New<CInstHandler>()); }).Number, Hex(0x80041460));
}

} // namespace
} // namespace portico
