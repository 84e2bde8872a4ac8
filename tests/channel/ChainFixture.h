#pragma once

#include "channel/ChannelCommands.h"
#include "channel/ChannelDoubles.h"
#include "channel/ConfigurationCommands.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/CObjectFactory.h"
#include "support/Labels.h"
#include "support/doubles/ConfigurationDouble.h"
#include "support/doubles/Objects.h"

#include <gmock/gmock.h>

namespace portico::test {

/// A chain's surroundings, all of which write into one trace.
class ChainTest : public ::testing::Test {
protected:
  ChainTest();
  ~ChainTest() override;

  Ref<CreatorOfOne> Offer(StringView specification, const Ref<IObject>& product);

  void ExpectReport(std::size_t at, const ReportText& expected);

  Trace Events;
  Ref<CObjectFactory> Factory = New<CObjectFactory>();
  Ref<FakeChannel> Channel = New<FakeChannel>(Events);
  Ref<ConfigurationDouble> Server = New<ConfigurationDouble>(Events);
  Ref<RecordingPublisher> Publisher = New<RecordingPublisher>(Events);
  Ref<ICommand> Inner = InnerCommand(Events);
};

/// A new command that is initialized with the inner command, `arguments` and the publisher.
template <class Command, class... Arguments>
Ref<Command> Made(const Ref<ICommand>& inner, const Ref<IPublisher>& publisher, const Arguments&... arguments) {
  auto command = New<Command>();
  command->Initialize(inner, arguments..., publisher);
  return command;
}

} // namespace portico::test
