#pragma once

#include "channel/ChannelCommands.h"
#include "channel/ChannelDoubles.h"
#include "channel/ConfigurationCommands.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/CObjectFactory.h"
#include "support/Labels.h"
#include "support/doubles/CreatorOfOne.h"

#include <gmock/gmock.h>

namespace portico::test {

/// A chain's surroundings, all of which write into one trace.
class ChainTest : public ::testing::Test {
protected:
  ChainTest() {
    gChannel = Channel;
    gObjectFactory = Factory;
    Offer(u"Configuration", Server);
    Offer(u"CmdSubscriptionAgent", Publisher);
  }
  ~ChainTest() override {
    Publisher->Subjects.clear(); // a command holds its publisher
    gChannel = nullptr;
    gObjectFactory = nullptr;
    HuntERR::Reset();
  }

  Ref<CreatorOfOne> Offer(StringView specification, const Ref<IObject>& product) {
    auto creator = New<CreatorOfOne>(String(specification), product);
    Factory->Add(creator);
    return creator;
  }

  void ExpectReport(std::size_t at, const ReportText& expected) {
    ASSERT_GT(Publisher->Reports.size(), at);
    const ReportText& report = Publisher->Reports[at];
    EXPECT_EQ(report.Command, expected.Command);
    EXPECT_EQ(report.Data, expected.Data);
    EXPECT_EQ(report.Message, expected.Message);
    EXPECT_EQ(report.Code, expected.Code);
    EXPECT_EQ(report.Instruction, expected.Instruction);
  }

  Trace Events;
  Ref<CObjectFactory> Factory = New<CObjectFactory>();
  Ref<FakeChannel> Channel = New<FakeChannel>(Events);
  Ref<FakeConfigurationServer> Server = New<FakeConfigurationServer>(Events);
  Ref<RecordingPublisher> Publisher = New<RecordingPublisher>(Events);
  Ref<ICommand> Inner = New<RecordingCommand>(Events);
};

/// A new command that is initialized with the inner command, `arguments` and the publisher.
template <class Command, class... Arguments>
Ref<Command> Made(const Ref<ICommand>& inner, const Ref<IPublisher>& publisher, const Arguments&... arguments) {
  auto command = New<Command>();
  command->Initialize(inner, arguments..., publisher);
  return command;
}

} // namespace portico::test
