#include "channel/ChainFixture.h"

#include "channel/CIntervalPacingCmd.h"

namespace portico {
namespace {

using test::ChainTest;
using test::ExpectError;
using test::ExpectTrail;
using test::Made;
using test::Raised;
using ::testing::IsEmpty;

class ChainErrorTest : public ChainTest {
protected:
  struct Link {
    Ref<ICommand> Command;
    StringView ExecuteLabel;
  };

  template <class Command>
  static Link Raw(StringView label) {
    return {New<Command>(), label};
  }

  std::vector<Link> ChannelLinks() {
    return {
        {Made<COpenCmd>(Inner, Publisher, u"X"), u"COpenCmd.ICommand_Execute"},
        {Made<CWriteCmd>(Inner, Publisher, u"X"), u"CWriteCmd.ICommand_Execute"},
        {Made<CReadCmd>(Inner, Publisher), u"CReadCmd.ICommand_Execute"},
        {Made<CCloseCmd>(Inner, Publisher), u"CCloseCmd.ICommand_Execute"},
        {Made<CGetAttribCmd>(Inner, Publisher, u"X"), u"CGetAttribCmd.ICommand_Execute"},
        {Made<CSetAttribCmd>(Inner, Publisher, u"X", u"Y"), u"CSetAttribCmd.ICommand_Execute"},
    };
  }
  std::vector<Link> ConfigurationLinks() {
    return {
        {Made<CGetConfigCmd>(Inner, Publisher, u"X"), u"CGetConfigCmd.ICommand_Execute"},
        {Made<CSetConfigCmd>(Inner, Publisher, u"X"), u"COpenCmd.ICommand_Execute"},
    };
  }

  static void Fail() { HuntERR::Raise(7777, u"Test", u"It fails."); }
};

TEST_F(ChainErrorTest, ExecuteBeforeInitializeTouchesNothing) {
  const std::vector<Link> links = {
      Raw<COpenCmd>(u"COpenCmd.ICommand_Execute"),           Raw<CWriteCmd>(u"CWriteCmd.ICommand_Execute"),
      Raw<CReadCmd>(u"CReadCmd.ICommand_Execute"),           Raw<CCloseCmd>(u"CCloseCmd.ICommand_Execute"),
      Raw<CGetAttribCmd>(u"CGetAttribCmd.ICommand_Execute"), Raw<CSetAttribCmd>(u"CSetAttribCmd.ICommand_Execute"),
      Raw<CGetConfigCmd>(u"CGetConfigCmd.ICommand_Execute"), Raw<CSetConfigCmd>(u"COpenCmd.ICommand_Execute"),
      Raw<CIntervalPacingCmd>(u"CReadCmd.ICommand_Execute"),
  };
  for (const auto& [command, label] : links) {
    const ErrorRecord error = Raised([&, &link = command] { link->Execute(); });
    ExpectError(error, test::Hex(0x80041460), u"Method cannot be called before Initialize().");
    ExpectTrail(error, {label});
  }
  EXPECT_THAT(Events, IsEmpty());
}

TEST_F(ChainErrorTest, FailureOfTheChannelStopsTheChainUnderTheLinksLabel) {
  Channel->OnCall = Fail;
  for (const auto& [command, label] : ChannelLinks()) {
    Events.clear();
    const ErrorRecord error = Raised([&, &link = command] { link->Execute(); });
    ExpectError(error, 7777, u"It fails.");
    ExpectTrail(error, {label});
    EXPECT_EQ(Events.size(), 1U); // neither published nor passed on to the inner command
  }
}

TEST_F(ChainErrorTest, FailureOfTheServerStopsTheChainUnderTheLinksLabel) {
  Server->OnCall = Fail;
  for (const auto& [command, label] : ConfigurationLinks()) {
    Events.clear();
    const ErrorRecord error = Raised([&, &link = command] { link->Execute(); });
    ExpectError(error, 7777, u"It fails.");
    ExpectTrail(error, {label});
    EXPECT_EQ(Events.size(), 1U);
  }
}

TEST_F(ChainErrorTest, FailureOfThePublisherStopsTheChain) {
  Publisher->OnNotify = Fail;
  for (const auto& links : {ChannelLinks(), ConfigurationLinks()}) {
    for (const auto& [command, label] : links) {
      Events.clear();
      ExpectTrail(Raised([&, &link = command] { link->Execute(); }), {label});
      EXPECT_THAT(Events, ::testing::Not(::testing::Contains("Inner")));
    }
  }
}

TEST_F(ChainErrorTest, FailureOfAnInnerCommandPassesAllTheLinksAroundIt) {
  const auto inner = test::InnerCommand(Events, Fail);
  const auto chain = Made<CWriteCmd>(Made<CReadCmd>(inner, Publisher), Publisher, u"X");
  ExpectTrail(Raised([&] { chain->Execute(); }), {u"CReadCmd.ICommand_Execute", u"CWriteCmd.ICommand_Execute"});
}

TEST_F(ChainErrorTest, OpenThatCannotReachTheConfigurationIsNotPublished) {
  Server->OnCall = Fail;
  ExpectTrail(Raised([&] { Made<COpenCmd>(Inner, Publisher, u"X")->Execute(); }), {u"COpenCmd.ICommand_Execute"});
  EXPECT_EQ(Events, (test::Trace{"OpenChannel(X)", "InstrumentOpened=True"}));
}

TEST_F(ChainErrorTest, WithoutAChannelTheLinksRaise91) {
  gChannel = nullptr;
  for (const auto& [command, label] : ChannelLinks()) {
    const ErrorRecord error = Raised([&, &link = command] { link->Execute(); });
    EXPECT_EQ(error.Number, 91);
    ExpectTrail(error, {label});
  }
}

TEST_F(ChainErrorTest, WithoutAFactoryTheConfigurationLinksSaySo) {
  gObjectFactory = nullptr;
  for (const auto& [command, label] : ConfigurationLinks()) {
    const ErrorRecord error = Raised([&, &link = command] { link->Execute(); });
    ExpectError(error, 91, u"This command requires an object factory. There is none.");
    ExpectTrail(error, {label});
  }
  EXPECT_THAT(Events, IsEmpty());
}

} // namespace
} // namespace portico
