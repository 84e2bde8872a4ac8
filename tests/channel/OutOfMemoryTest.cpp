#include "channel/CIntervalPacingCmd.h"
#include "channel/CIntervalTimer.h"
#include "channel/ChainFixture.h"
#include "channel/DriverSessionFixture.h"
#include "memory/EventLoop.h"
#include "support/Allocation.h"
#include "support/doubles/ManualClock.h"

namespace portico {
namespace {

using test::ExpectTrail;
using test::OutOfMemory;

/// Longer than what a text holds without allocating.
const String LongText(40, u'x');

TEST(LinkOutOfMemory, InitializePassesItsFailureOnUnderItsLabel) {
  const Ref<ICommand> none;
  const Ref<IPublisher> silent;
  const auto expect = [](StringView label, auto call) {
    const ErrorRecord error = OutOfMemory(1, call);
    EXPECT_EQ(error.Number, 7);
    ExpectTrail(error, {label});
  };
  COpenCmd open;
  expect(u"COpenCmd.Initialize(InnerCommand,ChannelName)", [&] { open.Initialize(none, LongText, silent); });
  CWriteCmd write;
  expect(u"CWriteCmd.Initialize(InnerCommand,Data)", [&] { write.Initialize(none, LongText, silent); });
  CGetConfigCmd get;
  expect(u"CGetConfigCmd.Initialize(InnerCommand, Configuration)", [&] { get.Initialize(none, LongText, silent); });
  CSetConfigCmd set;
  expect(u"COpenCmd.Initialize(InnerCommand, Configuration)", [&] { set.Initialize(none, LongText, silent); });
  HuntERR::Reset();
}

TEST(CreatorOutOfMemory, SpecificationPassesItsFailureOnUnderItsLabel) {
  const auto pacing = MakeCreator(CtorIntervalPacingCmd);
  const ErrorRecord error = OutOfMemory(1, [&] { pacing->Specification(); });
  EXPECT_EQ(error.Number, 7);
  ExpectTrail(error, {u"CtorIntervalPacingCmd.ICreator_Specification"});
  test::ManualClock clock;
  gEventLoop = std::make_shared<memory::EventLoop>(clock);
  const auto timer = MakeCreator(CtorIntervalTimer);
  ExpectTrail(OutOfMemory(1, [&] { timer->Specification(); }), {u"CtorCloseCmd.ICreator_Specification"});
  gEventLoop = nullptr;
  HuntERR::Reset();
}

class SessionOutOfMemory : public test::DriverSessionTest {};

TEST_F(SessionOutOfMemory, ResponseThatCannotBeMadePassesTheOperation) {
  const ErrorRecord error = OutOfMemory(1, [&] { Session->CloseChannel(); });
  EXPECT_EQ(error.Number, 7);
  ExpectTrail(error, {u"CDriverSession.GenerateResponse(code,data)", u"CDriverSession.IChannel_CloseChannel"});
}

TEST_F(SessionOutOfMemory, ResponseThatCannotTakeItsDataTellsThem) {
  Delivered = {0, Terminated("+1.00021948E+00")};
  Open();
  std::vector<String> calls;
  for (std::size_t number = 1; calls.empty() || !calls.front().starts_with(u"CResponse.Initialize"); ++number) {
    ASSERT_LT(number, 20U);
    calls = test::CallStack(OutOfMemory(number, [&] { Session->ReadData(); }));
  }
  const StringView data = u"'+1.00021948E+00')";
  EXPECT_EQ(calls, (std::vector<String>{String(u"CResponse.Initialize(code=0, data=").append(data),
                                        String(u"CDriverSession.GenerateResponse(code=0, data=").append(data),
                                        u"CDriverSession.IChannel_ReadData()"}));
}

TEST_F(SessionOutOfMemory, ReadBufferThatCannotBeMadePassesTheOperation) {
  const ErrorRecord error = OutOfMemory(1, [&] { Session->ReadData(); });
  EXPECT_EQ(error.Number, 7);
  ExpectTrail(error, {u"CDriverSession.IChannel_ReadData"});
}

} // namespace
} // namespace portico
